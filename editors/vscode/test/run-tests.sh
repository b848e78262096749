#!/bin/sh
# The extension's tests against a grammar the build generated: the TextMate
# test runner over the test cases (and over the case that covers every
# registered word), then node's test runner over the client and the grammar.
# usage: run-tests.sh GRAMMAR.json WORDS-TEST.per
set -eu
grammar=$1
words=$2
extension=$(cd "$(dirname "$0")/.." && pwd)
bin=$extension/node_modules/.bin
if [ ! -x "$bin/vscode-tmgrammar-test" ]; then
  echo "run-tests.sh: $extension/node_modules is missing: run 'make vscode-deps' (make test does)" >&2
  exit 1
fi
# The runner reads a package.json in the working directory and would then
# look for the grammar where the manifest says; the build directory has none.
cd "$(dirname "$grammar")"
"$bin/vscode-tmgrammar-test" --compact --grammar "$grammar" "$extension/test/*.per" "$words"
STRATAGEM_GRAMMAR=$grammar node --test "$extension/test/"
