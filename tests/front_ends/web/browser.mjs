// What the checks and the tour have in common: a server for a folder, and a browser.
import { createServer } from 'node:http';
import { readFile } from 'node:fs/promises';
import path from 'node:path';
import { createRequire } from 'node:module';

const { chromium } = createRequire(import.meta.url)('playwright-core');

const types = {
  '.html': 'text/html; charset=utf-8', '.js': 'text/javascript', '.css': 'text/css',
  '.wasm': 'application/wasm', '.png': 'image/png', '.bmp': 'image/bmp', '.jpg': 'image/jpeg',
  '.gif': 'image/gif', '.webmanifest': 'application/manifest+json', '.rtf': 'application/rtf',
};

// Serves a folder on the loopback address. `loaded` names each file served, with its size.
export async function serve(folder) {
  const loaded = [];
  const server = createServer(async (request, response) => {
    const name = decodeURIComponent(new URL(request.url, 'http://localhost').pathname);
    try {
      const bytes = await readFile(path.join(folder, name.endsWith('/') ? `${name}index.html` : name));
      loaded.push({ name, size: bytes.length });
      response.writeHead(200, { 'content-type': types[path.extname(name)] ?? types['.html'] });
      response.end(bytes);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((done) => server.listen(0, '127.0.0.1', done));
  return {
    address: `http://127.0.0.1:${server.address().port}/`,
    loaded,
    end: () => new Promise((done) => { server.close(done); server.closeAllConnections(); }),
  };
}

export function startBrowser() {
  return chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
      '--disable-background-networking', '--disable-component-update', '--disable-sync'],
  });
}
