// What the program calls of the page, one small step each; linked into the program by the compiler.
// Page elements go by numbers here and there. What is typed, clicked and loaded comes back through
// `web_event`; everything else about the page is decided in C++.

mergeInto(LibraryManager.library, {
  $page: {
    nodes: [null],
    sleepers: [],
    ticker: null,

    add: function(node) {
      const free = this.nodes.indexOf(undefined);
      if (free > 0) {
        this.nodes[free] = node;
        return free;
      }
      return this.nodes.push(node) - 1;
    },

    // Suspends the program until `start` calls what it is given. Of several suspended at a time the
    // latest goes on first.
    sleep: function(start) {
      let mine = null;
      const result = Asyncify.handleSleep((wake) => start((value) => {
        page.sleepers.splice(page.sleepers.indexOf(mine), 1);
        Asyncify.currData = mine;
        wake(value);
        Asyncify.currData = page.sleepers[page.sleepers.length - 1] || null;
      }));
      if (Asyncify.state === Asyncify.State.Unwinding) {
        mine = Asyncify.currData;
        page.sleepers.push(mine);
      }
      return result;
    },

    send: function(handle, kind, event, key) {
      const text = key ? allocateUTF8(key) : 0;
      _web_event(handle, kind, event.clientX || 0, event.clientY || 0, event.timeStamp || 0, text);
      if (text) _free(text);
    },
  },
  $page__deps: ['$Asyncify'],

  page_body__deps: ['$page'],
  page_body: function() {
    return page.add(document.getElementById('windows'));
  },

  page_create__deps: ['$page'],
  page_create: function(parent, tag, className) {
    const node = document.createElement(UTF8ToString(tag));
    node.className = UTF8ToString(className);
    if (node.tagName === 'BUTTON') node.type = 'button';
    page.nodes[parent].append(node);
    return page.add(node);
  },

  page_forget__deps: ['$page'],
  page_forget: function(handle) {
    page.nodes[handle] = undefined;
  },

  page_remove__deps: ['$page'],
  page_remove: function(handle) {
    page.nodes[handle].remove();
    page.nodes[handle] = undefined;
  },

  page_text__deps: ['$page'],
  page_text: function(handle, text) {
    page.nodes[handle].textContent = UTF8ToString(text);
  },

  page_attribute__deps: ['$page'],
  page_attribute: function(handle, name, value) {
    const node = page.nodes[handle];
    if (value) node.setAttribute(UTF8ToString(name), UTF8ToString(value));
    else node.removeAttribute(UTF8ToString(name));
  },

  page_style__deps: ['$page'],
  page_style: function(handle, property, value) {
    page.nodes[handle].style.setProperty(UTF8ToString(property), UTF8ToString(value));
  },

  page_class__deps: ['$page'],
  page_class: function(handle, name, on) {
    page.nodes[handle].classList.toggle(UTF8ToString(name), on !== 0);
  },

  page_value__deps: ['$page'],
  page_value: function(handle) {
    return allocateUTF8(page.nodes[handle].value);
  },

  page_set_value__deps: ['$page'],
  page_set_value: function(handle, value) {
    page.nodes[handle].value = UTF8ToString(value);
  },

  page_focus__deps: ['$page'],
  page_focus: function(handle) {
    page.nodes[handle].focus({ preventScroll: true });
  },

  page_has_focus__deps: ['$page'],
  page_has_focus: function(handle) {
    return page.nodes[handle] === document.activeElement;
  },

  page_scroll_top__deps: ['$page'],
  page_scroll_top: function(handle) {
    page.nodes[handle].scrollTo(0, 0);
  },

  // Kinds: see EventKind.
  page_listen__deps: ['$page'],
  page_listen: function(handle, kind) {
    const node = page.nodes[handle];
    const on = (type, act, options) => node.addEventListener(type, act, options);
    const send = (event, key) => page.send(handle, kind, event, key);
    switch (kind) {
      case 0:
        on('click', send);
        // A key held down since it ended something else is not meant for the button.
        on('keydown', (event) => event.repeat && event.key === 'Enter' && event.preventDefault());
        break;
      case 1:
        on('pointerdown', (event) => {
          if (event.target !== node || event.button !== 0 || !event.isPrimary) return;
          node.setPointerCapture(event.pointerId);
          send(event);
        });
        // Or the browser would make a click of the finger's touch on what it takes to be meant.
        on('touchend', (event) => event.target === node && event.preventDefault());
        break;
      case 2:
        on('pointerup', (event) => event.button === 0 && event.isPrimary && send(event));
        break;
      case 3:
        on('pointermove', (event) => node.hasPointerCapture(event.pointerId) && send(event));
        break;
      case 4:
        on('keydown', (event) => {
          if (!event.isComposing) send(event, event.key);
        });
        break;
      case 5: {
        const keys = ['ArrowLeft', 'ArrowRight', 'ArrowUp', 'ArrowDown', 'Enter', ' ', 'd', 'D'];
        on('keydown', (event) => {
          const meant = !event.ctrlKey && !event.altKey && !event.metaKey;
          if (!meant || !keys.includes(event.key) || !event.target.matches('.picture')) return;
          event.preventDefault();
          if (!event.repeat || event.key.startsWith('Arrow')) send(event, event.key);
        });
        break;
      }
      case 6:
        on('input', send);
        break;
      case 7:
        on('error', send);
        break;
      case 8:
        on('focus', send);
        break;
    }
  },

  page_listen_everywhere__deps: ['$page'],
  page_listen_everywhere: function() {
    addEventListener('resize', (event) => page.send(0, 9, event));
    addEventListener('pagehide', (event) => page.send(0, 10, event));
    addEventListener('pointerdown', (event) => {
      page.send(page.nodes.indexOf(event.target), 11, event);
    }, true);
    // A press moves the keyboard's focus to where text can be typed or marked, and nowhere else.
    addEventListener('mousedown', (event) => {
      if (!event.target.closest('input, .rich-text, dialog, footer')) event.preventDefault();
    });
    addEventListener('contextmenu', (event) => {
      if (event.target.closest('.client') && !event.target.closest('input, .rich-text')) {
        event.preventDefault();
      }
    });
  },

  page_left__deps: ['$page'],
  page_left: function(handle) {
    return page.nodes[handle].getBoundingClientRect().left;
  },

  page_top__deps: ['$page'],
  page_top: function(handle) {
    return page.nodes[handle].getBoundingClientRect().top;
  },

  page_node_width__deps: ['$page'],
  page_node_width: function(handle) {
    return page.nodes[handle].offsetWidth;
  },

  page_node_height__deps: ['$page'],
  page_node_height: function(handle) {
    return page.nodes[handle].offsetHeight;
  },

  // Gives the keyboard to the first control within.
  page_focus_first__deps: ['$page'],
  page_focus_first: function(handle) {
    const first = page.nodes[handle].querySelector('button:enabled, input:enabled, .rich-text');
    if (first) first.focus({ preventScroll: true });
  },

  page_width: function() {
    return document.documentElement.clientWidth;
  },

  page_height: function() {
    return document.documentElement.clientHeight;
  },

  page_ratio: function() {
    return devicePixelRatio;
  },

  page_touched: function() {
    return matchMedia('(pointer: coarse)').matches;
  },

  // Opens a dialog and waits until it is closed; answers the number its button has as value, or
  // -1 when it was closed without one.
  page_ask__deps: ['$page'],
  page_ask: function(handle) {
    return page.sleep((wake) => {
      const dialog = page.nodes[handle];
      const before = document.activeElement;
      dialog.addEventListener('close', () => {
        if (before) before.focus({ preventScroll: true });
        wake(dialog.returnValue === '' ? -1 : Number(dialog.returnValue));
      });
      dialog.addEventListener('click', (event) => {
        const button = event.target.closest('button');
        if (button) dialog.close(button.value);
      });
      dialog.addEventListener('keydown', (event) => {
        const letter = event.altKey ? event.key.toLowerCase() : '';
        const button = letter && dialog.querySelector(`button[data-key="${CSS.escape(letter)}"]`);
        if (button) dialog.close(button.value);
      });
      dialog.showModal();
    });
  },

  page_close_dialog__deps: ['$page'],
  page_close_dialog: function(handle) {
    page.nodes[handle].close('');
  },

  // Reads a file of the page's own server; its bytes go to `web_fetched`, none when it can't be
  // read.
  page_fetch__deps: ['$page'],
  page_fetch: function(url, job) {
    const done = (bytes) => {
      const place = bytes ? _malloc(bytes.length + 1) : 0;
      if (bytes) HEAPU8.set(bytes, place);
      _web_fetched(job, place, bytes ? bytes.length : 0);
      _free(place);
    };
    fetch(UTF8ToString(url))
      .then((answer) => (answer.ok ? answer.arrayBuffer() : null))
      .then((buffer) => buffer && new Uint8Array(buffer))
      .catch(() => null)
      .then(done);
  },

  page_picture_url: function(bytes, length, type) {
    const content = HEAPU8.slice(bytes, bytes + length);
    return allocateUTF8(URL.createObjectURL(new Blob([content], { type: UTF8ToString(type) })));
  },

  page_drop_url: function(url) {
    URL.revokeObjectURL(UTF8ToString(url));
  },

  // What the browser stores is text: a character for each byte. Answers 0, or 1 when the storage
  // is full, 2 when it is forbidden.
  page_store__deps: ['$page'],
  page_store: function(name, bytes, length) {
    let text = '';
    for (let i = 0; i < length; ++i) text += String.fromCharCode(HEAPU8[bytes + i]);
    try {
      localStorage.setItem(new URL(UTF8ToString(name), document.baseURI).pathname, text);
      return 0;
    } catch (error) {
      return error.name === 'QuotaExceededError' ? 1 : 2;
    }
  },

  // The length of what is stored, -1 for nothing, -2 when the storage is forbidden. The bytes go
  // to a new block of memory.
  page_stored__deps: ['$page'],
  page_stored: function(name, block) {
    try {
      const text = localStorage.getItem(new URL(UTF8ToString(name), document.baseURI).pathname);
      if (text === null) return -1;
      const place = _malloc(text.length + 1);
      for (let i = 0; i < text.length; ++i) HEAPU8[place + i] = text.charCodeAt(i);
      HEAPU32[block >> 2] = place;
      return text.length;
    } catch (error) {
      return -2;
    }
  },

  page_start_timer__deps: ['$page'],
  page_start_timer: function(timer, interval) {
    if (!page.ticker) {
      page.ticker = new Worker('ticker.js');
      page.ticker.onmessage = (message) => {
        _web_tick(message.data);
        page.ticker.postMessage({ heard: message.data });
      };
    }
    page.ticker.postMessage({ start: timer, interval });
  },

  page_stop_timer__deps: ['$page'],
  page_stop_timer: function(timer) {
    page.ticker.postMessage({ stop: timer });
  },

  page_local_time: function(part) {
    const now = new Date();
    return [now.getFullYear(), now.getMonth() + 1, now.getDate(), now.getHours(),
      now.getMinutes()][part];
  },

  // The locale's texts: months 0 to 11, 12 the time separator, 13 the decimal separator.
  page_locale_text: function(what) {
    const part = (parts, type) => {
      const found = parts.find((one) => one.type === type);
      return found ? found.value : '';
    };
    const moment = new Date(2001, what % 12, 1, 10, 30);
    if (what < 12) {
      const name = moment.toLocaleDateString(navigator.language, { month: 'short' });
      return allocateUTF8(name.replace(/\.$/, ''));
    }
    if (what === 13) {
      return allocateUTF8(part(new Intl.NumberFormat(navigator.language).formatToParts(1.5),
        'decimal'));
    }
    const time = new Intl.DateTimeFormat(navigator.language,
      { hour: 'numeric', minute: 'numeric', hour12: false }).formatToParts(moment);
    return allocateUTF8(part(time.slice(1), 'literal'));
  },

  page_save_file: function(name, bytes, length) {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob([HEAPU8.slice(bytes, bytes + length)],
      { type: 'application/octet-stream' }));
    link.download = UTF8ToString(name);
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  },

  page_load_file__deps: ['$page'],
  page_load_file: function(job) {
    const input = document.createElement('input');
    input.type = 'file';
    input.accept = '.scr';
    input.onchange = () => input.files[0].arrayBuffer().then((buffer) => {
      const place = _malloc(buffer.byteLength + 1);
      HEAPU8.set(new Uint8Array(buffer), place);
      _web_fetched(job, place, buffer.byteLength);
      _free(place);
    });
    input.click();
  },

  page_find__deps: ['$page'],
  page_find: function(id) {
    return page.add(document.getElementById(UTF8ToString(id)));
  },
});
