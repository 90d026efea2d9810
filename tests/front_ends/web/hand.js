// The hand and the eyes of the checks in a page. Input goes to the browser through `act`, which the
// program that runs the browser puts into the page; what is seen is asked of the page itself.

const Hand = {
  $hand: {
    last: null,
    heard: [],
    listener: null,
    files: null,
    fetches: 0,

    // Has something done after all that was to be done before.
    then: function(work) {
      hand.last = Promise.resolve(hand.last).then(work);
    },

    window: function(caption) {
      return [...document.querySelectorAll('.window:not([hidden])')].find(
        (one) => one.querySelector('.caption').textContent === UTF8ToString(caption));
    },

    scale: function(section) {
      return Number(section.style.getPropertyValue('--scale'));
    },

    // Where a place in the client area lies in the page.
    spot: function(section, x, y) {
      const area = section.querySelector('.client').getBoundingClientRect();
      return { x: area.left + x * hand.scale(section), y: area.top + y * hand.scale(section) };
    },

    // The element of a control that begins at this place of the client area.
    control: function(caption, x, y) {
      const number = (node, name) => Number(node.style.getPropertyValue(name) || 0);
      const kinds = 'button.element, input.element, .rich-text.element';
      return [...hand.window(caption).querySelectorAll(kinds)].find((one) => {
        const frame = one.closest('.frame');
        const at = (name) => number(one, name) + (frame ? number(frame, name) : 0);
        return Math.abs(at('--left') - x) < 0.5 && Math.abs(at('--top') - y) < 0.5;
      });
    },

    found: (section) => [...section.querySelectorAll('.picture[aria-hidden="false"]')].filter(
      (one) => one.getClientRects().length > 0),

    serve: function() {
      if (hand.files) return;
      hand.files = new Map();
      const real = fetch;
      fetch = (url) => {
        const own = hand.files.get(url);
        const answer = own ? Promise.resolve(new Response(own)) : real(url);
        ++hand.fetches;
        const done = () => setTimeout(() => --hand.fetches, 0);
        answer.then(done, done);
        return answer;
      };
    },
  },
  $hand__deps: ['$Asyncify'],

  hand_act: function(what, argument) {
    const wanted = { act: UTF8ToString(what), argument: UTF8ToString(argument) };
    hand.then(() => act(wanted));
  },

  hand_mouse: function(caption, x, y, button, down) {
    const at = hand.spot(hand.window(caption), x, y);
    hand.then(() => act({ act: down ? 'down' : 'up', button: ['left', 'right'][button], ...at }));
  },

  // Closes a window, or the open box where it has no such caption. Below a box nothing takes the
  // mouse, so that the desktop's way is gone there.
  hand_close: function(caption) {
    const section = hand.window(caption);
    hand.then(() => {
      const box = document.querySelector('dialog[open]');
      const close = (section || box).querySelector('.close');
      if (section && box) return close.click();
      const area = close.getBoundingClientRect();
      return act(
        { act: 'click', x: area.left + area.width / 2, y: area.top + area.height / 2 });
    });
  },

  // Waits until all input has been given and the page has shown what came of it.
  hand_settle: function() {
    return Asyncify.handleSleep((wake) => {
      const rest = () => {
        const waits = hand.last;
        Promise.resolve(waits).then(() => requestAnimationFrame(() => setTimeout(() => {
          const loading = hand.fetches > 0 || [...document.images].some((one) => !one.complete);
          if (waits !== hand.last || loading) rest();
          else wake(0);
        }, 0)));
      };
      rest();
    });
  },

  hand_wait: function(milliseconds) {
    return Asyncify.handleSleep((wake) => setTimeout(() => wake(0), milliseconds));
  },

  // The colour of one pixel, as 0xRRGGBB.
  hand_pixel: function(caption, x, y) {
    const at = hand.spot(hand.window(caption), x, y);
    return Asyncify.handleSleep((wake) => act({ act: 'look', ...at }).then(
      (color) => setTimeout(() => wake(color), 0)));
  },

  // Width, height and whether it is in front; empty where there is no such window.
  hand_window: function(caption) {
    const section = hand.window(caption);
    if (!section) return page.putText('');
    const client = section.querySelector('.client');
    const [width, height] = [client.clientWidth, client.clientHeight].map(
      (pixels) => Math.round(pixels / hand.scale(section)));
    return page.putText(`${width} ${height} ${Number(section.matches('.foremost'))}`);
  },

  // Whether a control is shown, has the focus, can scroll, what it is scrolled by, its text.
  hand_control: function(caption, x, y, scroll) {
    const node = hand.control(caption, x, y);
    if (!node) return page.putText('0 0 0 0');
    if (scroll) node.scrollTop = scroll;
    const lines = () => [...node.querySelectorAll('p')].map((one) => one.textContent).join('\n');
    return page.putText([node.getClientRects().length > 0, node === document.activeElement,
      node.scrollHeight > node.clientHeight, node.scrollTop].map((one) => Math.round(one))
      .join(' ') + '\n' + (node.matches('input') ? node.value : lines()));
  },

  // The title, the text and the buttons of the open box, a line each; empty without one.
  hand_box: function() {
    const box = [...document.querySelectorAll('dialog[open]')].pop();
    if (!box) return page.putText('');
    const buttons = [...box.querySelectorAll('.choice')].map((one) => one.textContent);
    return page.putText([box.querySelector('.caption').textContent,
      box.querySelector('p').textContent, ...buttons].join('\n'));
  },

  // A line for each picture that a screen reader finds: key, focus, selection, place, name.
  hand_accessible: function(caption) {
    const section = hand.window(caption);
    const corner = hand.spot(section, 0, 0);
    return page.putText(hand.found(section).map((one) => {
      const { x, y, width, height } = one.getBoundingClientRect();
      const place = [x - corner.x, y - corner.y, width, height].map((n) => n / hand.scale(section));
      return [one.getAttribute('aria-keyshortcuts') || '-', Number(one === document.activeElement),
        Number(one.getAttribute('aria-pressed') === 'true'), ...place,
        one.getAttribute('aria-label')].join(' ');
    }).join('\n'));
  },

  hand_press: function(caption, name) {
    hand.found(hand.window(caption)).find(
      (one) => one.getAttribute('aria-label') === UTF8ToString(name)).click();
  },

  hand_announced: function() {
    const announcer = document.getElementById('announcer');
    hand.listener ||= new MutationObserver(() => hand.heard.push(announcer.textContent));
    hand.listener.observe(announcer, { childList: true, characterData: true, subtree: true });
    return page.putText(hand.heard.splice(0).filter((text) => text).join('\n'));
  },

  hand_put_file: function(path, bytes, length) {
    hand.serve();
    hand.files.set(UTF8ToString(path), HEAPU8.slice(bytes, bytes + length));
  },

  hand_leave_page: function() {
    dispatchEvent(new Event('pagehide'));
  },

  hand_done: function(failures) {
    act({ act: 'done', failures });
  },
};
autoAddDeps(Hand, '$hand');
mergeInto(LibraryManager.library, Hand);
