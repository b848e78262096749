'use strict';
// The generated grammar as VS Code loads it: every regex compiles in the
// editor's own engine, every rule is reachable, and it is the grammar the
// manifest declares. The build writes it; STRATAGEM_GRAMMAR names it, else
// the copy that `make vsix` puts into the extension.
const test = require('node:test');
const assert = require('node:assert/strict');
const fs = require('fs');
const path = require('path');
const oniguruma = require('vscode-oniguruma');
const manifest = require('../package.json');

const grammarPath = process.env.STRATAGEM_GRAMMAR || path.join(__dirname, '..', 'syntaxes', 'stratagem.tmLanguage.json');
const grammar = JSON.parse(fs.readFileSync(grammarPath, 'utf8'));

function* rules(node) {
  if (Array.isArray(node)) for (const item of node) yield* rules(item);
  else if (node && typeof node === 'object') {
    yield node;
    for (const value of Object.values(node)) yield* rules(value);
  }
}

test('every regex of the grammar compiles in the editor engine', async () => {
  const wasm = fs.readFileSync(require.resolve('vscode-oniguruma/release/onig.wasm'));
  await oniguruma.loadWASM(wasm.buffer.slice(wasm.byteOffset, wasm.byteOffset + wasm.byteLength));
  const regexes = [];
  for (const rule of rules(grammar)) for (const key of ['match', 'begin', 'end']) if (typeof rule[key] === 'string') regexes.push(rule[key]);
  assert.ok(regexes.length > 10, `only ${regexes.length} regexes`);
  for (const regex of regexes) {
    assert.doesNotThrow(() => new oniguruma.OnigScanner([regex]).dispose(), regex.slice(0, 80));
  }
});

test('every include names a rule and every rule is included', () => {
  const included = new Set();
  for (const rule of rules(grammar)) if (typeof rule.include === 'string') included.add(rule.include);
  const defined = Object.keys(grammar.repository).map((key) => `#${key}`);
  assert.deepEqual([...included].sort(), [...defined].sort());
});

test('it is the grammar the manifest declares for the language', () => {
  const [declared] = manifest.contributes.grammars;
  const [language] = manifest.contributes.languages;
  assert.equal(grammar.scopeName, declared.scopeName);
  assert.equal(declared.language, language.id);
  assert.deepEqual(language.extensions.map((e) => e.replace(/^\./, '')).sort(), [...grammar.fileTypes].sort());
  assert.equal(path.basename(declared.path), path.basename(grammarPath));
});
