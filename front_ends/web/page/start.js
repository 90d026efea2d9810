// What the page does by itself before and beside the program: it starts it, and sees to it that one
// page of the game plays at a time.
'use strict';

const show = (id, on) => { document.getElementById(id).hidden = !on; };

var Module = {
  noInitialRun: true,
  print: (text) => console.log(text),
  printErr: (text) => console.error(text),
};
const loaded = new Promise((done) => { Module.onRuntimeInitialized = done; });

// Whatever goes wrong before there is a window keeps the game from starting.
for (const trouble of ['error', 'unhandledrejection']) {
  addEventListener(trouble, () => {
    if (!document.querySelector('.window')) show('unable', true);
  }, true);
}

for (const button of document.querySelectorAll('.again')) {
  button.addEventListener('click', () => location.reload());
}

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
  show('elsewhere', true);
  await new Promise((pressed) => { document.getElementById('play-here').onclick = pressed; });
  show('elsewhere', false);
  channel.postMessage('give');
  if (!await take({ signal: AbortSignal.timeout(3000) })) await take({ steal: true });
}

function storedList() {
  try {
    return localStorage.getItem(new URL('highscore.scr', document.baseURI).pathname);
  } catch (error) {
    return null;
  }
}

const savePending = () => dispatchEvent(new Event('saving'));

// A page that is kept for the way back holds no lock. It goes on when nobody has played meanwhile.
function shareTurns() {
  let left;
  channel.onmessage = () => { savePending(); leave(); };
  addEventListener('pagehide', () => { left = storedList(); letGo(); });
  addEventListener('pageshow', async ({ persisted }) => {
    if (persisted && !(await take({ ifAvailable: true }) && storedList() === left)) leave();
  });
}

document.addEventListener('visibilitychange', () => { if (document.hidden) savePending(); });

Promise.all([loaded, mayPlay()]).then(() => {
  callMain();
  if (channel) shareTurns();
});

if ('serviceWorker' in navigator) {
  addEventListener('load', async () => {
    try {
      await navigator.serviceWorker.register('service-worker.js');
      const { active } = await navigator.serviceWorker.ready;
      // The pictures that this screen needs, once there is nothing better to do.
      const keep = () => active.postMessage({ fine: devicePixelRatio > 1 });
      if ('requestIdleCallback' in window) requestIdleCallback(keep, { timeout: 10000 });
      else setTimeout(keep, 3000);
    } catch (error) {
      console.info(`Solvanta: ohne Netz nicht spielbar (${error.message})`);
    }
  });
}
