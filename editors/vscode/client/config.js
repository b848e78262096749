'use strict';
// What the extension hands the language server, worked out from the
// `stratagem.*` settings. Kept apart from the VS Code API so it can be
// tested on its own.
const fs = require('fs');
const path = require('path');

const SECTION = 'stratagem';

// The settings the server reads, each with the value it takes when unset.
// A value is sent as the user wrote it: the server takes a single word for a
// list of one and reports, as a warning the editor shows, a value it cannot
// use, where dropping it here would leave the user guessing.
const ANALYSIS_KEYS = { mainFiles: () => [], settings: () => ({}), defines: () => [] };

// initializationOptions, and the `settings` of workspace/didChangeConfiguration:
// { mainFiles: [path relative to the workspace folder], settings: { field: integer }, defines: [word] }.
function analysisOptions(get) {
  const options = {};
  for (const [key, unset] of Object.entries(ANALYSIS_KEYS)) {
    const value = get(key);
    options[key] = value === undefined || value === null ? unset() : value;
  }
  return options;
}

// The program to start. A bare name is looked up on PATH when it is spawned;
// a relative path with a directory in it is taken from the workspace folder,
// and "~/" from the home directory.
function serverCommand(serverPath, workspaceFolder, homeDir) {
  const given = typeof serverPath === 'string' && serverPath.trim() !== '' ? serverPath.trim() : 'stratagem-lsp';
  if (given === '~' || given.startsWith('~/')) return path.join(homeDir, given.slice(1));
  if (path.isAbsolute(given) || !given.includes('/') || !workspaceFolder) return given;
  return path.resolve(workspaceFolder, given);
}

function isExecutableFile(file) {
  try {
    fs.accessSync(file, fs.constants.X_OK);
    return fs.statSync(file).isFile();
  } catch {
    return false;
  }
}

// The executable file the command names, looking a bare name up on the
// directories of searchPath (PATH) as spawning it would; undefined when there
// is none, so that a missing server is told apart from one that fails.
function locateProgram(command, searchPath) {
  if (command.includes('/')) return isExecutableFile(command) ? command : undefined;
  for (const directory of (searchPath || '').split(path.delimiter)) {
    if (directory === '') continue;
    const candidate = path.join(directory, command);
    if (isExecutableFile(candidate)) return candidate;
  }
  return undefined;
}

module.exports = { SECTION, ANALYSIS_KEYS, analysisOptions, serverCommand, locateProgram };
