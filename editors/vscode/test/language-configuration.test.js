'use strict';
// The editing rules VS Code applies from language-configuration.json.
const test = require('node:test');
const assert = require('node:assert/strict');
const configuration = require('../language-configuration.json');
const manifest = require('../package.json');

test('comments, brackets and auto-closing pairs', () => {
  assert.equal(configuration.comments.lineComment, ';');
  assert.deepEqual(configuration.brackets, [['(', ')']]);
  const pairs = configuration.autoClosingPairs.map(({ open, close }) => open + close);
  assert.deepEqual(pairs.sort(), ['""', '()']);
});

test('the next line is indented after a line that leaves a parenthesis or a block open', () => {
  const increase = new RegExp(configuration.indentationRules.increaseIndentPattern);
  const cases = [
    ['(defrule', true],
    ['  (defrule ; opens the rule', true],
    ['    (and', true],
    ['#load-if-defined GIANT-MAP', true],
    ['# load-if-not-defined REGICIDE', true],
    ['#else', true],
    ['(load "economy")', false],
    ['    (train villager)', false],
    ['    (food-amount > 5) ; enough', false],
    ['=>', false],
    ['#end-if', false],
    ['#elsewhere', false],
    ['; (defrule', false],
  ];
  for (const [line, want] of cases) assert.equal(increase.test(line), want, line);
});

test('a line that closes a parenthesis or a block is outdented', () => {
  const decrease = new RegExp(configuration.indentationRules.decreaseIndentPattern);
  const cases = [
    [')', true],
    ['    )', true],
    ['#else', true],
    ['  #end-if', true],
    ['#end-iffy', false],
    ['(train villager)', false],
    ['#load-if-defined X', false],
  ];
  for (const [line, want] of cases) assert.equal(decrease.test(line), want, line);
});

test('a word is a whole run of symbol characters', () => {
  const word = new RegExp(configuration.wordPattern, 'g');
  assert.deepEqual('(food-amount >= sn_x-2)'.match(word), ['food-amount', '>=', 'sn_x-2']);
});

test('double-click selects the same whole words as the word pattern', () => {
  const separators = manifest.contributes.configurationDefaults['[stratagem]']['editor.wordSeparators'];
  const line = '(food-amount >= sn_x-2)(train "archer-line") ; -5 #load-if-defined GIANT-MAP';
  const clicked = [...line].map((c) => (separators.includes(c) || /\s/.test(c) ? ' ' : c)).join('').split(' ').filter(Boolean);
  const words = line.match(new RegExp(configuration.wordPattern, 'g')).filter((w) => /[A-Za-z0-9_-]/.test(w));
  assert.deepEqual(clicked, words);
});
