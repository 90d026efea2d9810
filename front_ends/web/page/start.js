// What the page does by itself before and beside the program: it loads it and its pictures, tells
// how that goes, and sees to it that one page of the game plays at a time.
'use strict';

// By name, with size and tag: under an address with its tag a file is of this version.
const files = @files@;
const address = (name) => (files[name] ? `${name}?${files[name].tag}` : name);
const byId = (id) => document.getElementById(id);
const show = (id, on) => { byId(id).hidden = !on; };

// Loading

const refused = 'Der Server gibt das Spiel zurzeit nicht heraus.';
const broken = 'Das Spiel ist beschädigt angekommen.';
const dropped = 'Die Verbindung ist abgebrochen.';
const program = 'Solvanta.wasm.z';
const loading = { [program]: 0 };  // by file, how much is there

// The first trouble ends the start with a sentence.
function give(sentence, again = true) {
  if (!byId('unable').hidden) return;
  show('loading', false);
  show('unable', true);
  byId('reason').textContent = sentence;
  show('try-again', again);
}

function tellProgress() {
  const kilobytes = (sizes) => Math.round(sizes.reduce((sum, size) => sum + size, 0) / 1000);
  const names = Object.keys(loading);
  byId('progress').textContent = `${kilobytes(names.map((name) => loading[name]))} von ` +
    `${kilobytes(names.map((name) => files[name].size))} KB`;
}

// A file as it comes; fails with the sentence that tells why.
async function* partsOf(name) {
  const answer = await fetch(address(name)).catch(() => { throw dropped; });
  if (!answer.ok) throw refused;
  const reader = answer.body.getReader();
  const next = () => reader.read().catch(() => { throw dropped; });
  let size = 0;
  for (let part = await next(); !part.done; part = await next()) {
    size += part.value.length;
    if (name in loading) {
      loading[name] = size;
      tellProgress();
    }
    yield part.value;
  }
  if (files[name] && size !== files[name].size) throw broken;
}

async function bytesOf(name) {
  const parts = [];
  for await (const part of partsOf(name)) parts.push(part);
  return new Uint8Array(await new Blob(parts).arrayBuffer());
}

const unzip = (bytes) => new Response(
  new Blob([bytes]).stream().pipeThrough(new DecompressionStream('gzip'))).arrayBuffer();

// The program is compiled while it comes.
async function start(imports) {
  let trouble = broken;
  const parts = partsOf(program);
  const coming = new ReadableStream({
    async pull(taker) {
      const { done, value } = await parts.next().catch((sentence) => { throw trouble = sentence; });
      if (done) taker.close();
      else taker.enqueue(value);
    },
  });
  const whole = new Response(coming.pipeThrough(new DecompressionStream('gzip')),
    { headers: { 'Content-Type': 'application/wasm' } });
  return WebAssembly.instantiateStreaming(whole, imports).catch(() => { throw trouble; });
}

// Pictures come packed: a line of names and sizes, and then their bytes.
function unpack(bytes) {
  let at = bytes.indexOf(10) + 1;
  const sizes = JSON.parse(new TextDecoder().decode(bytes.subarray(0, at)));
  return new Map(sizes.map(([name, size]) => [name, bytes.subarray(at, at += size)]));
}

const packs = {};

function pack(name) {
  packs[name] = packs[name] || bytesOf(name).then((bytes) => {
    if (begun) keepCopy(name);
    return unpack(bytes);
  });
  packs[name].catch(() => { delete packs[name]; });
  return packs[name];
}

// What is drawn at more than twice its size starts with less: those packs come once the player does
// something.
const packFor = (times) => (times > 1 ? `pictures@${times}x.pack` : 'pictures.pack');
const played = new Promise((done) => {
  for (const input of ['pointerdown', 'keydown']) addEventListener(input, done, { once: true });
});
let drawn = '';  // the pack of the pictures that the program starts with
let begun = false;

var Module = {
  noInitialRun: true,
  print: (text) => console.log(text),
  printErr: (text) => console.error(text),
  locateFile: address,

  instantiateWasm(imports, receive) {
    start(imports).then(({ instance }) => receive(instance)).catch(give);
    return {};
  },

  // Reads a file that the program names.
  async load(path) {
    const name = path.replace(/^\.\//, '');
    if (name.endsWith('.rtf')) return unzip(await bytesOf(`${name}.z`));
    const times = Number((/@(\d)x/.exec(name) || [0, 1])[1]);
    if (times > 2) await played;
    return (await pack(packFor(times))).get(name);
  },

  // The program draws pictures prepared at so many times their size from now on.
  draws(times) {
    if (begun) return undefined;
    drawn = packFor(Math.min(times, 2));
    loading[drawn] = loading[drawn] || 0;
    return pack(drawn).then(begin, give);
  },
};
const ready = new Promise((done) => { Module.onRuntimeInitialized = done; });

// The table can be played, with all its pictures.
function begin() {
  if (begun || !(drawn in packs)) return;
  begun = true;
  show('loading', false);
  show('links', true);
  byId('windows').inert = false;
  document.querySelector('.client button').focus({ preventScroll: true });
  keepCopy(drawn);
}

// For playing without a network.
async function keepCopy(name) {
  if (!navigator.serviceWorker) return;
  try {
    await navigator.serviceWorker.register('service-worker.js');
    (await navigator.serviceWorker.ready).active.postMessage(name);
  } catch (error) {
    console.info(`Solvanta: ohne Netz nicht spielbar (${error.message})`);
  }
}

// A program that does not come, or is none.
addEventListener('error', ({ target, filename = '' }) => {
  const source = target.src || filename;
  if (!source.startsWith(new URL('Solvanta.js', document.baseURI).href)) return;
  if (!document.querySelector('.window')) {
    bytesOf('Solvanta.js').then(() => give(broken), give);
  }
}, true);

for (const button of document.querySelectorAll('.again')) {
  button.addEventListener('click', () => location.reload());
}

// The list of best times

// The browser may keep for seconds to itself what goes to its storage. So the list goes to its
// database as well, which is flushed at once; the one with the higher number is the newer.
const listKey = new URL('highscore.scr', document.baseURI).pathname;
const numberKey = `${listKey} number`;

function storedText(key) {
  try {
    return localStorage.getItem(key);
  } catch (error) {
    return null;
  }
}

const database = new Promise((done, fail) => {
  const request = indexedDB.open(`Solvanta ${listKey}`);
  request.onupgradeneeded = () => request.result.createObjectStore('lists');
  request.onsuccess = () => done(request.result);
  request.onerror = fail;
});
database.catch(() => {});

// The program has stored the list. Once there is an entry the browser is asked to keep it.
Module.stored = (text) => {
  const number = Number(localStorage.getItem(numberKey)) + 1;
  localStorage.setItem(numberKey, number);
  database.then((lists) => {
    const writing = lists.transaction('lists', 'readwrite', { durability: 'strict' });
    writing.objectStore('lists').put({ number, text }, 'list');
    writing.commit();  // even if the page goes
  }).catch(() => {});
  if (navigator.storage && /^[1-9]/.test(text)) navigator.storage.persist().catch(() => {});
};

async function restoreList() {
  const lists = await database;
  const request = lists.transaction('lists').objectStore('lists').get('list');
  await new Promise((done) => { request.onsuccess = request.onerror = done; });
  const { number, text } = request.result || { number: 0 };
  if (number <= Number(storedText(numberKey))) return;
  localStorage.setItem(listKey, text);
  localStorage.setItem(numberKey, number);
}

// Turns

// The page that has the lock plays. It lets go of it when it goes, or when another asks for it, and
// starts anew: by then another may have written the list.
const lockName = `Solvanta ${new URL('.', document.baseURI).pathname}`;
const channel = navigator.locks && new BroadcastChannel(lockName);
let letGo = () => {};

function leave() {
  Module.mayNotStore = true;
  location.reload();
}

// Answers whether the page has the lock by now; not, when others keep it for too long.
function take(options) {
  let had = false;
  return new Promise((answer) => {
    navigator.locks.request(lockName, options, (lock) => {
      had = Boolean(lock);
      answer(had);
      return lock && new Promise((done) => { letGo = done; });
    }).catch(() => (had ? leave() : answer(false)));
  });
}

async function mayPlay() {
  if (!channel || await take({ ifAvailable: true })) return;
  show('loading', false);
  show('elsewhere', true);
  await new Promise((pressed) => { byId('play-here').onclick = pressed; });
  show('elsewhere', false);
  show('loading', true);
  channel.postMessage('give');
  if (!await take({ signal: AbortSignal.timeout(3000) })) await take({ steal: true });
}

const savePending = () => dispatchEvent(new Event('saving'));

// A page that is kept for the way back holds no lock. It goes on when nobody has played meanwhile.
function shareTurns() {
  let left;
  channel.onmessage = () => { savePending(); leave(); };
  addEventListener('pagehide', () => { left = storedText(listKey); letGo(); });
  addEventListener('pageshow', async ({ persisted }) => {
    if (persisted && !(await take({ ifAvailable: true }) && storedText(listKey) === left)) leave();
  });
}

document.addEventListener('visibilitychange', () => { if (document.hidden) savePending(); });

if (location.protocol === 'file:') {
  give('Als Datei geöffnet spielt die Seite nicht: Ein Webserver muss sie ausliefern.', false);
} else if (!window.DecompressionStream) {
  give('Dieser Browser ist zu alt für das Spiel.', false);
}

const wait = (milliseconds) => new Promise((done) => { setTimeout(done, milliseconds); });

Promise.all([ready, mayPlay()]).then(async () => {
  await Promise.race([restoreList().catch(() => {}), wait(2000)]);
  callMain();
  if (channel) shareTurns();
});

