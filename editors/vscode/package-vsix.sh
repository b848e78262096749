#!/bin/sh
# Packages the extension with the grammar the build generated, without
# writing into the source tree: the extension is copied to a scratch
# directory, the grammar put into its syntaxes/, and vsce packages that.
# package.json's "files" decides what goes into the package.
# usage: package-vsix.sh GRAMMAR.json OUTPUT.vsix
set -eu
grammar=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
output=$(cd "$(dirname "$2")" && pwd)/$(basename "$2")
extension=$(cd "$(dirname "$0")" && pwd)
if [ ! -x "$extension/node_modules/.bin/vsce" ]; then
  echo "package-vsix.sh: $extension/node_modules is missing: run 'make vscode-deps'" >&2
  exit 1
fi
stage=$(mktemp -d "${TMPDIR:-/tmp}/stratagem-vsix.XXXXXX")
trap 'rm -rf "$stage"' EXIT INT TERM
tar -C "$extension" --exclude=./node_modules --exclude='*.vsix' -cf - . | tar -C "$stage" -xf -
ln -s "$extension/node_modules" "$stage/node_modules"
mkdir -p "$stage/syntaxes"
cp "$grammar" "$stage/syntaxes/stratagem.tmLanguage.json"
cd "$stage"
CI=true ./node_modules/.bin/vsce package --skip-license --allow-missing-repository --out "$output" </dev/null
