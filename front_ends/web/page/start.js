// What the page does by itself before and beside the program.
'use strict';

var Module = {
  print: (text) => console.log(text),
  printErr: (text) => console.error(text),
};

// Whatever goes wrong before there is a window keeps the game from starting.
for (const trouble of ['error', 'unhandledrejection']) {
  addEventListener(trouble, () => {
    if (!document.querySelector('.window')) document.getElementById('unable').hidden = false;
  }, true);
}

document.getElementById('start-again').addEventListener('click', () => location.reload());

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
