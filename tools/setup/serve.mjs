// Serves a folder on the loopback address, under a free port, and prints the page's address:
//
//   serve.mjs FOLDER [COMMAND]
//
// COMMAND, if there is one, is run with the address.
import { spawn } from 'node:child_process';
import { existsSync } from 'node:fs';
import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

const types = {
  '.bmp': 'image/bmp', '.css': 'text/css', '.gif': 'image/gif', '.html': 'text/html; charset=utf-8',
  '.jpg': 'image/jpeg', '.js': 'text/javascript', '.png': 'image/png',
  '.webmanifest': 'application/manifest+json',
};

// Answers where the page is, and how to end. `loaded` names each file sent, with its size on the
// way; it is what the folder has compressed where the browser takes that.
export async function serve(folder, { compressed = true } = {}) {
  const loaded = [];
  const server = createServer(async (request, response) => {
    try {
      const { pathname } = new URL(request.url, 'http://localhost');
      const name = path.posix.normalize(decodeURIComponent(pathname)).replace(/\/$/, '/index.html');
      const file = path.join(folder, name);
      const packed = compressed && /\bbr\b/.test(request.headers['accept-encoding']) &&
        existsSync(`${file}.br`);
      const bytes = await readFile(packed ? `${file}.br` : file);
      loaded.push({ name, size: bytes.length });
      response.writeHead(200, {
        'cache-control': 'no-cache',
        'content-type': types[path.extname(name)] ?? 'application/octet-stream',
        ...(packed && { 'content-encoding': 'br' }),
      }).end(bytes);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((done) => { server.listen(0, '127.0.0.1', done); });
  return {
    address: `http://127.0.0.1:${server.address().port}/`,
    loaded,
    end: () => new Promise((done) => { server.close(done); server.closeAllConnections(); }),
  };
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const [folder, command] = process.argv.slice(2);
  const { address } = await serve(folder);
  console.log(address);
  if (command) spawn(command, [address], { stdio: 'ignore', detached: true }).on('error', () => {});
}
