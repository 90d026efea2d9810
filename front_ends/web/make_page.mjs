// Puts the page's own files beside the program, where nothing else stays, and tells them of all that
// belongs to this version; then puts a compressed one beside each that shrinks. The program and the
// help lie there compressed alone, as NAME.z, which the page undoes: so they are small from any server.
//
//   make_page.mjs PROGRAM_DIRECTORY FILES...
//
// `@files@` in a script becomes an object of the files by their names, each with its size and its
// hash, as version.json tells of all; `NAME?@tag@` in the page an address that another version of the
// file does not have.
import { createHash } from 'node:crypto';
import { copyFileSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { brotliCompressSync, gzipSync } from 'node:zlib';

const [folder, ...given] = process.argv.slice(2);
const place = (name) => path.join(folder, name);
const version = {};

function add(name, as = name) {
  const bytes = readFileSync(place(name));
  const hash = `sha256-${createHash('sha256').update(bytes).digest('base64')}`;
  version[as] = { size: bytes.length, hash, tag: hash.slice(7, 17).replace(/\W/g, '') };
}

const last = ['start.js', 'index.html'];
const named = (file) => path.basename(file).replace(/\.(rtf|wasm)$/, '$&.z');
const sources = new Map(given.map((file) => [named(file), file]));
mkdirSync(folder, { recursive: true });
for (const name of readdirSync(folder)) if (!sources.has(name)) rmSync(place(name));
for (const [name, file] of sources) {
  if (last.includes(name)) continue;  // they name the others
  if (name.endsWith('.z')) writeFileSync(place(name), gzipSync(readFileSync(file), { level: 9 }));
  else copyFileSync(file, place(name));
  if (name !== 'service-worker.js') add(name);
}
for (const name of last) {
  const text = readFileSync(sources.get(name), 'utf8')
    .replace('@files@', () => JSON.stringify(version))
    .replace(/([\w.]+)\?@tag@/g, (_, file) => `${file}?${version[file].tag}`);
  writeFileSync(place(name), text);
  add(name, name === 'index.html' ? './' : name);
}
writeFileSync(place('version.json'), JSON.stringify(version));

for (const name of [...sources.keys()].filter((one) => /\.(css|html|js)$/.test(one))) {
  const bytes = readFileSync(place(name));
  writeFileSync(place(`${name}.gz`), gzipSync(bytes, { level: 9 }));
  writeFileSync(place(`${name}.br`), brotliCompressSync(bytes));
}
