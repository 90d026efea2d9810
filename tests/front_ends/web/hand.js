// The hand and the eyes of the checks in a page. Input goes to the browser through `act`, which the
// program that runs the browser puts into the page; what is seen is asked of the page itself.

mergeInto(LibraryManager.library, {
  $hand: {
    last: null,
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
      return [...hand.window(caption).querySelectorAll('button, input, .rich-text')].find((one) => {
        const frame = one.closest('.frame');
        const at = (name) => number(one, name) + (frame ? number(frame, name) : 0);
        return Math.abs(at('--left') - x) < 0.5 && Math.abs(at('--top') - y) < 0.5 &&
          one.matches('.element');
      });
    },

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
  $hand__deps: ['$page'],

  hand_press__deps: ['$hand'],
  hand_press: function(caption, x, y, right, down) {
    const section = hand.window(caption);
    hand.then(() => act({
      act: down ? 'press' : 'release', button: right ? 'right' : 'left',
      ...hand.spot(section, x, y),
    }));
  },

  hand_key__deps: ['$hand'],
  hand_key: function(key, modifier) {
    const names = { key: UTF8ToString(key), modifier: UTF8ToString(modifier) };
    hand.then(() => act({ act: 'key', ...names }));
  },

  hand_repeat_key__deps: ['$hand'],
  hand_repeat_key: function(key) {
    const name = UTF8ToString(key);
    hand.then(() => act({ act: 'repeat', key: name }));
  },

  hand_type__deps: ['$hand'],
  hand_type: function(text) {
    const typed = UTF8ToString(text);
    hand.then(() => act({ act: 'type', text: typed }));
  },

  hand_rest__deps: ['$hand'],
  hand_rest: function() {
    hand.then(() => act({ act: 'rest' }));
  },

  // Below a box nothing takes the mouse, so that the desktop's way is gone there.
  hand_close__deps: ['$hand'],
  hand_close: function(caption) {
    const close = hand.window(caption).querySelector('.close');
    hand.then(() => {
      if (document.querySelector('dialog[open]')) return close.click();
      const area = close.getBoundingClientRect();
      const at = { x: area.left + area.width / 2, y: area.top + area.height / 2 };
      return act({ act: 'press', button: 'left', ...at })
        .then(() => act({ act: 'release', button: 'left', ...at }));
    });
  },

  hand_close_box__deps: ['$hand'],
  hand_close_box: function() {
    hand.then(() => {
      const area = document.querySelector('dialog[open] .close').getBoundingClientRect();
      const at = { x: area.left + area.width / 2, y: area.top + area.height / 2 };
      return act({ act: 'press', button: 'left', ...at })
        .then(() => act({ act: 'release', button: 'left', ...at }));
    });
  },

  hand_later__deps: ['$hand'],
  hand_later: function(milliseconds, number) {
    setTimeout(() => _hand_call(number), milliseconds);
  },

  // Waits until all input has been given and the page has shown what came of it.
  hand_settle__deps: ['$hand'],
  hand_settle: function() {
    return page.sleep((wake) => {
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

  hand_wait__deps: ['$hand'],
  hand_wait: function(milliseconds) {
    return page.sleep((wake) => setTimeout(() => wake(0), milliseconds));
  },

  // The colour of one pixel, as 0xRRGGBB.
  hand_pixel__deps: ['$hand'],
  hand_pixel: function(caption, x, y) {
    return page.sleep((wake) => act({ act: 'look', ...hand.spot(hand.window(caption), x, y) })
      .then((color) => setTimeout(() => wake(color), 0)));
  },

  // What of a window: 0 whether it is shown, 1 width, 2 height, 3 whether it is in front.
  hand_window__deps: ['$hand'],
  hand_window: function(caption, what) {
    const section = hand.window(caption);
    if (!section) return 0;
    const client = section.querySelector('.client');
    return [1, Math.round(client.clientWidth / hand.scale(section)),
      Math.round(client.clientHeight / hand.scale(section)),
      section.matches('.foremost') ? 1 : 0][what];
  },

  // What of a control: 0 whether it is shown, 1 has the focus, 2 can scroll, 3 is scrolled by;
  // 4 scrolls it.
  hand_control__deps: ['$hand'],
  hand_control: function(caption, x, y, what) {
    const node = hand.control(caption, x, y);
    if (!node) return 0;
    if (what === 4) node.scrollTop = 100;
    return [node.getClientRects().length > 0 ? 1 : 0, node === document.activeElement ? 1 : 0,
      node.scrollHeight > node.clientHeight ? 1 : 0, Math.round(node.scrollTop), 0][what];
  },

  hand_text__deps: ['$hand'],
  hand_text: function(caption, x, y) {
    const node = hand.control(caption, x, y);
    const lines = () => [...node.querySelectorAll('p')].map((one) => one.textContent).join('\n');
    return allocateUTF8(node.matches('input') ? node.value : lines());
  },

  // The title, the text and the buttons of the open box, a line each; empty without one.
  hand_box__deps: ['$hand'],
  hand_box: function() {
    const box = [...document.querySelectorAll('dialog[open]')].pop();
    if (!box) return allocateUTF8('');
    const buttons = [...box.querySelectorAll('.choice')].map((one) => one.textContent);
    return allocateUTF8([box.querySelector('.caption').textContent,
      box.querySelector('p').textContent, ...buttons].join('\n'));
  },

  hand_put_file__deps: ['$hand'],
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
});
