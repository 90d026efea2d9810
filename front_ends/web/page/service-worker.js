// Keeps a copy of the game for starts at once and without a network. The build makes one list of a
// version's files with their hashes, version.json. A version is taken whole or not at all, while
// the one before is played: its list comes into the copy behind its files, and the next start is
// the new one. Files lie under addresses with their tags, so that versions don't mix.
'use strict';

const store = `Solvanta ${registration.scope}`;
const list = 'version.json';
const open = () => caches.open(store);
const address = (name, { tag }) => `${new URL(name, registration.scope)}?${tag}`;

async function keptVersion() {
  const kept = await (await open()).match(list);
  return kept ? kept.json() : {};
}

// What is not the file meant is not kept: its hash tells.
async function keep(name, file) {
  const cache = await open();
  const key = address(name, file);
  if (await cache.match(key)) return;
  const url = /\.(css|js|pack|z)$/.test(name) ? key : name;
  const ask = (mode) => fetch(url, { cache: mode, integrity: file.hash });
  await cache.put(key, await ask('force-cache').catch(() => ask('reload')));
}

// Looks for a newer version; a page that draws pictures of this pack has begun.
async function look(drawn) {
  const cache = await open();
  const before = await keptVersion();
  const kept = (await cache.keys()).map(({ url }) => url);
  const answer = await fetch(list, { cache: 'no-cache' });
  const version = await answer.clone().json();
  const isWanted = (name) => !name.endsWith('.pack') || name === drawn ||
    kept.includes(address(name, before[name] || {}));
  await Promise.all(Object.keys(version).filter(isWanted).map((name) => keep(name, version[name])));
  await cache.put(list, answer);
  const addresses = (files) => Object.keys(files).map((name) => address(name, files[name]));
  const used = [...addresses(before), ...addresses(version)];
  await Promise.all(kept.filter((url) => url.includes('?') && !used.includes(url))
    .map((url) => cache.delete(url)));
}

async function copyOf({ mode, url }) {
  const asked = url.slice(registration.scope.length);
  const name = mode === 'navigate' && /^(index\.html)?($|[?#])/.test(asked) ? './' : asked;
  const file = (await keptVersion())[name];
  return (await open()).match(file ? address(name, file) : url);
}

addEventListener('message', (event) => event.waitUntil(look(event.data).catch(() => {})));

addEventListener('fetch', (event) => {
  const { request } = event;
  if (request.method !== 'GET' || !request.url.startsWith(registration.scope)) return;
  event.respondWith(copyOf(request).catch(() => undefined).then((copy) => copy || fetch(request)));
});
