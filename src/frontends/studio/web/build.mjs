// Bundles the page's script: node build.mjs OUTFILE
import { buildSync } from 'esbuild';

buildSync({
  entryPoints: [new URL('./src/main.js', import.meta.url).pathname],
  bundle: true,
  minify: true,
  format: 'iife',
  target: 'es2020',
  outfile: process.argv[2],
  logLevel: 'warning',
});
