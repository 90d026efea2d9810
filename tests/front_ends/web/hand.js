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

    window: (caption) => [...document.querySelectorAll('.window:not([hidden])')].find(
      (one) => one.querySelector('.caption').textContent === caption),

    scale: (section) => Number(section.style.getPropertyValue('--scale')),

    // Where a place in the client area of a window lies in the page.
    spot: function(caption, x, y) {
      const section = hand.window(caption);
      const area = section.querySelector('.client').getBoundingClientRect();
      return { x: area.left + x * hand.scale(section), y: area.top + y * hand.scale(section) };
    },

    places: (caption) => [...hand.window(caption).querySelectorAll(
      '.picture[aria-hidden="false"]')].filter((one) => one.getClientRects().length > 0),

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

    // What can be asked, each with a caption, a place in that window and a number, as it needs them.
    answers: {
      mouse: function(caption, x, y, number) {
        const [at, button] = [hand.spot(caption, x, y), ['left', 'right'][number >> 1]];
        hand.then(() => act({ act: 'mouse', down: number & 1, button, ...at }));
      },

      // Closes a window, or else the open box. Below a box nothing takes the mouse.
      close: function(caption) {
        const closed = hand.window(caption) || document.querySelector('dialog[open]');
        hand.then(() => closed.querySelector('.close').click());
      },

      leavePage: () => dispatchEvent(new Event('pagehide')),

      // Width, height and whether it is in front; nothing where there is no such window.
      window: function(caption) {
        const section = hand.window(caption);
        if (!section) return '';
        const { clientWidth, clientHeight } = section.querySelector('.client');
        return [...[clientWidth, clientHeight].map((one) => Math.round(one / hand.scale(section))),
          Number(section.matches('.foremost'))].join(' ');
      },

      // Whether the control that begins there is shown, has the focus, can scroll, what it is
      // scrolled by, its text.
      control: function(caption, x, y) {
        const node = [...hand.window(caption).querySelectorAll(
          'button.element, input.element, .rich-text.element')].find((one) => {
          const at = (name) => [one, one.closest('.frame')].reduce(
            (sum, box) => sum + Number(box?.style.getPropertyValue(name) ?? 0), 0);
          const scale = hand.scale(hand.window(caption));
          return Math.hypot(at('--left') / scale - x, at('--top') / scale - y) < 0.5;
        });
        if (!node) return '0 0 0 0';
        const lines = [...node.querySelectorAll('p')].map((one) => one.textContent).join('\n');
        return [node.getClientRects().length > 0, node === document.activeElement,
          node.scrollHeight > node.clientHeight, node.scrollTop].map((one) => Math.round(one))
          .join(' ') + '\n' + (node.matches('input') ? node.value : lines);
      },

      // The title, the text and the buttons of the open box, a line each; nothing without one.
      box: function() {
        const box = [...document.querySelectorAll('dialog[open]')].pop();
        return box ? [...box.querySelectorAll('.caption, p, .choice')].map(
          (one) => one.textContent).join('\n') : '';
      },

      // A line for each picture that a screen reader finds: key, focus, selection, place, name.
      accessible: function(caption) {
        const [corner, scale] = [hand.spot(caption, 0, 0), hand.scale(hand.window(caption))];
        return hand.places(caption).map((one) => {
          const { x, y, width, height } = one.getBoundingClientRect();
          const place = [x - corner.x, y - corner.y, width, height].map((length) => length / scale);
          return [one.getAttribute('aria-keyshortcuts') || '-',
            Number(one === document.activeElement),
            Number(one.getAttribute('aria-pressed') === 'true'), ...place,
            one.getAttribute('aria-label')].join(' ');
        }).join('\n');
      },

      press: (caption, x, y, index) => hand.places(caption)[index].click(),

      announced: function() {
        const announcer = document.getElementById('announcer');
        hand.listener ||= new MutationObserver(() => hand.heard.push(announcer.textContent));
        hand.listener.observe(announcer, { childList: true, characterData: true, subtree: true });
        return hand.heard.splice(0).filter((text) => text).join('\n');
      },
    },
  },
  $hand__deps: ['$Asyncify'],

  // What is none of the questions is done by the browser.
  hand_ask: function(question, given, x, y, number) {
    const [what, text] = [UTF8ToString(question), UTF8ToString(given)];
    const ask = hand.answers[what] || (() => hand.then(() => act({ act: what, text })));
    return page.putText(ask(text, x, y, number) ?? '');
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
    const at = hand.spot(UTF8ToString(caption), x, y);
    return Asyncify.handleSleep((wake) => act({ act: 'look', ...at }).then(
      (color) => setTimeout(() => wake(color), 0)));
  },

  hand_put_file: function(path, bytes, length) {
    hand.serve();
    hand.files.set(UTF8ToString(path), HEAPU8.slice(bytes, bytes + length));
  },
};
autoAddDeps(Hand, '$hand');
mergeInto(LibraryManager.library, Hand);
