#!/bin/sh
# Packages the extension with a grammar the build generated and checks what
# the package holds: the client, its runtime dependencies, the grammar and the
# language configuration, and nothing of the tests, the generator or the
# packaging tools. Names in a .vsix (a zip) are stored as plain text.
# usage: package-test.sh GRAMMAR.json OUTPUT.vsix
set -eu
vsix=$2
rm -f "$vsix"
sh "$(dirname "$0")/../package-vsix.sh" "$1" "$vsix" >/dev/null
status=0
for name in extension/package.json extension/readme.md extension/language-configuration.json \
            extension/client/extension.js extension/client/config.js \
            extension/syntaxes/stratagem.tmLanguage.json \
            extension/node_modules/vscode-languageclient/package.json; do
  grep -aq "$name" "$vsix" || { echo "package-test.sh: $name is missing from $vsix" >&2; status=1; }
done
for name in extension/test/ extension/gen/ extension/package-vsix.sh \
            extension/node_modules/@vscode/vsce extension/node_modules/vscode-tmgrammar-test; do
  if grep -aq "$name" "$vsix"; then echo "package-test.sh: $name must not be in $vsix" >&2; status=1; fi
done
[ $status -eq 0 ] && echo "package-test.sh: $vsix holds the extension"
exit $status
