// What the program calls of the page, one small step each; the compiler links this file into the
// program. Elements of the page and listeners go by numbers here and there; the names of events,
// properties, attributes and keys are the browser's own. What comes of it is decided in C++.

const Page = {
  $page: {
    nodes: {},
    last: 0,
    event: null,
    ticker: null,
    ticks: {},  // intervals by listener
    focused: [],  // what has had the keyboard's focus, the latest last

    add: function(node) {
      page.nodes[++page.last] = node;
      return page.last;
    },

    // A new block of the program's memory with these bytes.
    put: function(bytes) {
      const place = _malloc(bytes.length + 1);
      HEAPU8.set(bytes, place);
      return place;
    },

    // A new block with a text, which ends with a zero byte.
    putText: (text) => page.put(new TextEncoder().encode(`${text}\0`)),

    // Tells a listener of an event, or hands it the bytes of a file that has come.
    tell: function(listener, event, bytes) {
      const place = bytes ? page.put(bytes) : 0;
      page.event = event;
      const taken = _web_event(listener, place, bytes ? bytes.length : 0);
      if (taken && event.cancelable) event.preventDefault();
      _free(place);
    },

    startTicker: function() {
      try {
        page.ticker = new Worker(locateFile('ticker.js'));
      } catch (error) {
        return page.tickPlainly();
      }
      page.ticker.onerror = page.tickPlainly;
      page.ticker.onmessage = ({ data }) => page.tell(data, {});
    },

    // Ticks of the page itself, where no worker can start.
    tickPlainly: function() {
      const timers = {};
      page.ticker = {
        postMessage: ({ start, interval, stop }) => {
          if (start) timers[start] = setInterval(() => page.tell(start, {}), interval);
          clearInterval(timers[stop]);
        },
      };
      for (const id in page.ticks) {
        page.ticker.postMessage({ start: Number(id), interval: page.ticks[id] });
      }
    },

    // The player's language, where the browser knows it.
    language: function() {
      try {
        return Intl.getCanonicalLocales(navigator.language)[0];
      } catch (error) {
        return 'de';
      }
    },

    blob: function(bytes, length, type) {
      return URL.createObjectURL(new Blob([HEAPU8.slice(bytes, bytes + length)], { type }));
    },

    // Where the browser stores a file of the program.
    key: function(name) {
      return new URL(UTF8ToString(name), document.baseURI).pathname;
    },
  },

  page_find: function(id) {
    return page.add(document.getElementById(UTF8ToString(id)));
  },

  page_create: function(parent, tag, className) {
    const node = document.createElement(UTF8ToString(tag));
    node.className = UTF8ToString(className);
    if (node.tagName === 'BUTTON') node.type = 'button';
    page.nodes[parent].append(node);
    return page.add(node);
  },

  page_forget: function(node) {
    delete page.nodes[node];
  },

  page_set: function(node, property, text) {
    page.nodes[node][UTF8ToString(property)] = UTF8ToString(text);
  },

  page_attribute: function(node, name, value) {
    page.nodes[node].setAttribute(UTF8ToString(name), UTF8ToString(value));
  },

  page_attribute_if: function(node, name, present) {
    page.nodes[node].toggleAttribute(UTF8ToString(name), present !== 0);
  },

  page_style: function(node, property, value) {
    page.nodes[node].style.setProperty(UTF8ToString(property), UTF8ToString(value));
  },

  page_turn: function(node, className, on) {
    page.nodes[node].classList.toggle(UTF8ToString(className), on !== 0);
  },

  page_value: function(node) {
    return page.putText(page.nodes[node].value);
  },

  // Of the element, or of the page itself.
  page_number: function(node, property) {
    return (page.nodes[node] || document.documentElement)[UTF8ToString(property)];
  },

  page_call: function(node, method) {
    page.nodes[node][UTF8ToString(method)]();
  },

  page_focus: function(node) {
    page.nodes[node].focus({ preventScroll: true });
  },

  // Gives the keyboard to the first control within.
  page_focus_first: function(node) {
    const first = page.nodes[node].querySelector('button:enabled, input:enabled, .rich-text');
    if (first) first.focus({ preventScroll: true });
  },

  // What has the focus; when that has gone, what had it before and is still there.
  page_keep_focus: function() {
    const usable = (node) => node.isConnected && node.getClientRects().length > 0 && !node.disabled;
    const now = document.activeElement;
    if (now && now !== document.body) {
      page.focused = page.focused.filter((one) => one !== now && one.isConnected).concat(now);
    } else {
      const last = page.focused.filter(usable).pop();
      if (last) last.focus({ preventScroll: true });
    }
  },

  page_has_focus: function(node) {
    return page.nodes[node] === document.activeElement;
  },

  page_listen: function(node, type, listener) {
    (page.nodes[node] || window).addEventListener(
      UTF8ToString(type), (event) => page.tell(listener, event));
  },

  // A number or a truth that the event at hand tells; 0 where it tells none of this name.
  page_event: function(name) {
    return Number(page.event[UTF8ToString(name)]) || 0;
  },

  page_event_key: function() {
    const { code = '', key = '' } = page.event;
    return page.putText(code.startsWith('Digit') ? code.at(-1) : key);
  },

  page_event_within: function(selector) {
    return page.event.target.closest(UTF8ToString(selector)) !== null;
  },

  // The pointer belongs to the element until it is let go of.
  page_capture: function(node) {
    page.nodes[node].setPointerCapture(page.event.pointerId);
  },

  page_ratio: function() {
    return devicePixelRatio;
  },

  page_touched: function() {
    return matchMedia('(pointer: coarse)').matches;
  },

  page_soon: function(listener) {
    setTimeout(() => page.tell(listener, {}), 0);
  },

  page_start_ticks: function(listener, interval) {
    if (!page.ticker) page.startTicker();
    page.ticks[listener] = interval;
    page.ticker.postMessage({ start: listener, interval });
  },

  page_stop_ticks: function(listener) {
    delete page.ticks[listener];
    page.ticker.postMessage({ stop: listener });
  },

  // Tells the page which pictures it is to load.
  page_draws: function(times) {
    if (Module.draws) Module.draws(times);
  },

  // Reads a file of the page's own server; the listener gets no bytes when it can't be read.
  page_fetch: function(url, listener) {
    const plainly = (path) => fetch(path).then((answer) => (answer.ok ? answer.arrayBuffer() : null));
    (Module.load || plainly)(UTF8ToString(url))
      .catch(() => null)
      .then((bytes) => page.tell(listener, {}, bytes && new Uint8Array(bytes)));
  },

  // Of a longer file it reads one byte more than `limit`.
  page_load_file: function(listener, limit) {
    const input = document.createElement('input');
    input.type = 'file';
    input.accept = '.scr';
    input.onchange = () => input.files[0].slice(0, limit + 1).arrayBuffer().then(
      (buffer) => page.tell(listener, {}, new Uint8Array(buffer)),
      () => page.tell(listener, {}));
    input.oncancel = () => page.tell(listener, {});
    input.click();
  },

  page_save_file: function(name, bytes, length) {
    const link = document.createElement('a');
    link.href = page.blob(bytes, length, 'application/octet-stream');
    link.download = UTF8ToString(name);
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  },

  page_picture_url: function(bytes, length, type) {
    return page.putText(page.blob(bytes, length, UTF8ToString(type)));
  },

  // What the browser stores is text: a character for each byte. Answers 0, or 1 when the storage
  // is full, 2 when it is forbidden or the page has lost its turn to another.
  page_store: function(name, bytes, length) {
    if (Module.mayNotStore) return 2;
    let text = '';
    for (let i = 0; i < length; ++i) text += String.fromCharCode(HEAPU8[bytes + i]);
    try {
      localStorage.setItem(page.key(name), text);
      if (Module.stored) Module.stored(text);
      return 0;
    } catch (error) {
      return error.name === 'QuotaExceededError' ? 1 : 2;
    }
  },

  // The length of what is stored, -1 for nothing, -2 when the storage is forbidden. The bytes go
  // to a new block of memory.
  page_stored: function(name, block) {
    try {
      const text = localStorage.getItem(page.key(name));
      if (text === null) return -1;
      const place = page.put(Uint8Array.from(text, (one) => one.charCodeAt(0)));
      HEAPU32[block >> 2] = place;  // not before: the memory may have grown
      return text.length;
    } catch (error) {
      return -2;
    }
  },

  page_local_time: function(part) {
    const now = new Date();
    return [now.getFullYear(), now.getMonth() + 1, now.getDate(), now.getHours(),
      now.getMinutes()][part];
  },

  // The locale's texts: months 0 to 11, 12 the time separator, 13 the decimal separator.
  page_locale_text: function(what) {
    const language = page.language();
    const moment = new Date(2001, what % 12, 1, 10, 30);
    if (what < 12) {
      const name = moment.toLocaleDateString(language, { month: 'short' });
      return page.putText(name.replace(/\.$/, ''));
    }
    const time = { hour: 'numeric', minute: 'numeric', hour12: false };
    const [parts, type] = what === 12 ?
      [new Intl.DateTimeFormat(language, time).formatToParts(moment).slice(1), 'literal'] :
      [new Intl.NumberFormat(language).formatToParts(1.5), 'decimal'];
    const found = parts.find((one) => one.type === type);
    return page.putText(found ? found.value : '');
  },
};
autoAddDeps(Page, '$page');
mergeInto(LibraryManager.library, Page);
