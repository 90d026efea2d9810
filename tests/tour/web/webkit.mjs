// WebKit, driven by as much of WebDriver as a visit needs. Its page is called as those of the other
// browsers are; it tells nothing of its console.
import { spawn } from 'node:child_process';
import { writeFileSync } from 'node:fs';
import { setTimeout as sleep } from 'node:timers/promises';
import { serve } from './serve.mjs';

export async function startWebKit() {
  const { address, end } = await serve('.');  // under a port that is free
  await end();
  const driver = spawn('WebKitWebDriver', [`--port=${new URL(address).port}`], { stdio: 'ignore' });
  while (!await fetch(`${address}status`).catch(() => null)) await sleep(50);
  let session = `${address}session`;
  const ask = async (what, body, method = 'POST') => {
    const answer = await fetch(session + what, { method, body: body && JSON.stringify(body) });
    const { value } = await answer.json();
    return answer.ok ? value : Promise.reject(new Error(`${what}: ${value.message}`));
  };
  session += `/${(await ask('', { capabilities: {} })).sessionId}`;
  await ask('/window/rect', { width: 1280, height: 840 });

  const perform = (type) => (...actions) => ask('/actions', { actions: [{ type, id: type, actions }] });
  const [hand, keys] = [perform('pointer'), perform('key')];
  const [down, up] = ['pointerDown', 'pointerUp'].map((type) => ({ type, button: 0 }));
  const to = (x, y) => ({ type: 'pointerMove', duration: 0, x: Math.round(x), y: Math.round(y) });
  const type = (text) => keys(...[...text].flatMap(
    (value) => [{ type: 'keyDown', value }, { type: 'keyUp', value }]));
  const page = {
    goto: (url) => ask('/url', { url }),
    reload: () => ask('/refresh', {}),
    evaluate: (work, given = null) => ask('/execute/async', { args: [given], script:
      `Promise.resolve((${work})(arguments[0])).then(arguments[1])` }),
    screenshot: async ({ path }) => writeFileSync(path, await ask('/screenshot', undefined, 'GET'), 'base64'),
    keyboard: { type, press: (key) => type({ Enter: '\uE007', Escape: '\uE00C' }[key]) },
    mouse: {
      move: (x, y) => hand(to(x, y)), down: () => hand(down), up: () => hand(up),
      click: (x, y, { count }) => hand(to(x, y), ...Array(count).fill([down, up]).flat()),
    },
  };
  return { newPage: () => page, close: () => ask('', undefined, 'DELETE').finally(() => driver.kill()) };
}
