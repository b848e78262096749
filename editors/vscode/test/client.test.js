'use strict';
// The client against stand-ins for the VS Code API and the language client
// library: what it starts, what it sends, and when it restarts.
const test = require('node:test');
const assert = require('node:assert/strict');
const fs = require('fs');
const Module = require('module');
const os = require('os');
const path = require('path');

// ---- stand-ins ---------------------------------------------------------------
const world = { settings: {}, folders: [], clients: [], errors: [], handlers: {}, commands: {}, watchers: [], executed: [] };

class FakeLanguageClient {
  constructor(id, name, serverOptions, clientOptions) {
    Object.assign(this, { id, name, serverOptions, clientOptions, running: false, notifications: [] });
    world.clients.push(this);
  }
  async start() {
    await new Promise(setImmediate); // a real start waits for the server's answer
    if (world.failStart) throw new Error('spawn stratagem-lsp EACCES');
    this.running = true;
  }
  async stop() {
    this.running = false;
  }
  isRunning() {
    return this.running;
  }
  async sendNotification(type, params) {
    this.notifications.push({ method: type.method, params });
  }
}

const fakeVscode = {
  workspace: {
    getConfiguration: (section) => ({ get: (key) => world.settings[`${section}.${key}`] }),
    get workspaceFolders() {
      return world.folders.map((fsPath) => ({ uri: { fsPath } }));
    },
    onDidChangeConfiguration: (handler) => ((world.handlers.configuration = handler), { dispose() {} }),
    createFileSystemWatcher: (glob) => {
      const watcher = { glob, dispose() {} };
      world.watchers.push(watcher);
      return watcher;
    },
  },
  window: {
    createOutputChannel: (name) => ({ name, dispose() {} }),
    showErrorMessage: async (message, ...actions) => (world.errors.push({ message, actions }), world.choice),
  },
  commands: {
    registerCommand: (name, handler) => ((world.commands[name] = handler), { dispose() {} }),
    executeCommand: async (...args) => world.executed.push(args),
  },
};

const fakeClientLibrary = {
  LanguageClient: FakeLanguageClient,
  TransportKind: { stdio: 0 },
  DidChangeConfigurationNotification: { type: { method: 'workspace/didChangeConfiguration' } },
};

const originalLoad = Module._load;
Module._load = function load(request, ...rest) {
  if (request === 'vscode') return fakeVscode;
  if (request === 'vscode-languageclient/node') return fakeClientLibrary;
  return originalLoad.call(this, request, ...rest);
};
const extension = require('../client/extension');
const { analysisOptions, serverCommand, locateProgram, ANALYSIS_KEYS } = require('../client/config');
const manifest = require('../package.json');

// A workspace folder with bin/stratagem-lsp, and stratagem-lsp on PATH.
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'stratagem-client-'));
const workspace = path.join(scratch, 'strategy');
const onPath = path.join(scratch, 'path');
function program(file, mode = 0o755) {
  fs.mkdirSync(path.dirname(file), { recursive: true });
  fs.writeFileSync(file, '#!/bin/sh\n', { mode });
  return file;
}
program(path.join(workspace, 'bin', 'stratagem-lsp'));
program(path.join(onPath, 'stratagem-lsp'));
program(path.join(scratch, 'plain-file'), 0o644);
process.env.PATH = onPath;
test.after(() => fs.rmSync(scratch, { recursive: true, force: true }));

function reset(settings, folders = [workspace]) {
  Object.assign(world, { settings, folders, clients: [], errors: [], handlers: {}, commands: {}, watchers: [], executed: [] });
  Object.assign(world, { failStart: false, choice: undefined });
}

function changeOf(...sections) {
  return { affectsConfiguration: (s) => sections.some((changed) => changed === s || changed.startsWith(`${s}.`)) };
}

const last = () => world.clients[world.clients.length - 1];

// ---- the settings handed to the server ---------------------------------------
test('analysis options are sent as written, unset ones empty, for the server to take or report', () => {
  const cases = [
    { given: {}, want: { mainFiles: [], settings: {}, defines: [] } },
    {
      given: { mainFiles: ['main.per', 'ai/other.per'], settings: { nMapSize: 5, bRegicide: 1 }, defines: ['GIANT-MAP'] },
      want: { mainFiles: ['main.per', 'ai/other.per'], settings: { nMapSize: 5, bRegicide: 1 }, defines: ['GIANT-MAP'] },
    },
    {
      given: { mainFiles: 'main.per', settings: null, defines: 'REGICIDE' },
      want: { mainFiles: 'main.per', settings: {}, defines: 'REGICIDE' },
    },
    {
      given: { mainFiles: ['a.per', 7], settings: { nMapSize: '5', nCiv: 2.5 }, defines: [{}] },
      want: { mainFiles: ['a.per', 7], settings: { nMapSize: '5', nCiv: 2.5 }, defines: [{}] },
    },
  ];
  for (const { given, want } of cases) assert.deepEqual(analysisOptions((key) => given[key]), want, JSON.stringify(given));
});

test('the server program is found on PATH, from the workspace folder or from home', () => {
  const home = '/home/author';
  const cases = [
    { given: undefined, folder: '/ws', want: 'stratagem-lsp' },
    { given: '  ', folder: '/ws', want: 'stratagem-lsp' },
    { given: 'stratagem-lsp-dev', folder: '/ws', want: 'stratagem-lsp-dev' },
    { given: '/opt/stratagem/bin/stratagem-lsp', folder: '/ws', want: '/opt/stratagem/bin/stratagem-lsp' },
    { given: 'build/stratagem-lsp', folder: '/ws', want: '/ws/build/stratagem-lsp' },
    { given: './build/../bin/stratagem-lsp', folder: '/ws', want: '/ws/bin/stratagem-lsp' },
    { given: 'build/stratagem-lsp', folder: undefined, want: 'build/stratagem-lsp' },
    { given: '~/bin/stratagem-lsp', folder: '/ws', want: '/home/author/bin/stratagem-lsp' },
  ];
  for (const { given, folder, want } of cases) assert.equal(serverCommand(given, folder, home), want, String(given));
});

test('a missing or unusable server program is found missing before it is started', () => {
  const cases = [
    { command: 'stratagem-lsp', searchPath: onPath, want: path.join(onPath, 'stratagem-lsp') },
    { command: 'stratagem-lsp', searchPath: ['', scratch, onPath, workspace].join(path.delimiter), want: path.join(onPath, 'stratagem-lsp') },
    { command: 'stratagem-lsp', searchPath: scratch, want: undefined },
    { command: 'stratagem-lsp', searchPath: undefined, want: undefined },
    { command: 'plain-file', searchPath: scratch, want: undefined },
    { command: 'bin', searchPath: workspace, want: undefined },
    { command: path.join(workspace, 'bin', 'stratagem-lsp'), searchPath: '', want: path.join(workspace, 'bin', 'stratagem-lsp') },
    { command: path.join(workspace, 'bin'), searchPath: onPath, want: undefined },
    { command: path.join(scratch, 'plain-file'), searchPath: onPath, want: undefined },
  ];
  for (const { command, searchPath, want } of cases) assert.equal(locateProgram(command, searchPath), want, `${command} on ${searchPath}`);
});

test('every setting the client reads is declared in the manifest', () => {
  const declared = Object.keys(manifest.contributes.configuration.properties);
  const read = ['serverPath', ...Object.keys(ANALYSIS_KEYS)].map((key) => `stratagem.${key}`);
  assert.deepEqual([...declared].sort(), [...read].sort());
  // In an untrusted folder the program to run comes from user settings only.
  const { restrictedConfigurations } = manifest.capabilities.untrustedWorkspaces;
  assert.ok(restrictedConfigurations.every((key) => declared.includes(key)), String(restrictedConfigurations));
  assert.ok(restrictedConfigurations.includes('stratagem.serverPath'));
});

// ---- the extension's life ----------------------------------------------------
test('activation starts the configured server with the analysis options', async () => {
  reset({ 'stratagem.serverPath': 'bin/stratagem-lsp', 'stratagem.mainFiles': ['main.per'], 'stratagem.defines': ['REGICIDE'] });
  const context = { subscriptions: [] };
  await extension.activate(context);
  assert.equal(world.clients.length, 1);
  const client = last();
  assert.equal(client.running, true);
  assert.equal(client.serverOptions.run.command, path.join(workspace, 'bin/stratagem-lsp'));
  assert.deepEqual(client.clientOptions.initializationOptions, { mainFiles: ['main.per'], settings: {}, defines: ['REGICIDE'] });
  assert.ok(client.clientOptions.documentSelector.every((selector) => selector.language === manifest.contributes.languages[0].id));
  const watcher = client.clientOptions.synchronize.fileEvents;
  for (const suffix of manifest.contributes.languages[0].extensions) assert.ok(watcher.glob.includes(suffix.slice(1)), suffix);
  assert.ok(context.subscriptions.includes(watcher), 'the watcher is disposed with the extension');
  assert.ok(manifest.contributes.commands.some((c) => c.command === 'stratagem.restartServer'));
  await world.commands['stratagem.restartServer']();
  assert.equal(world.clients.length, 2);
  assert.equal(last().clientOptions.synchronize.fileEvents, watcher, 'a restart keeps the one watcher');
  assert.equal(world.watchers.length, 1);
  await extension.deactivate();
  assert.ok(world.clients.every((c) => !c.running));
});

test('a change of analysis settings is sent to the running server; a new server path restarts it', async () => {
  reset({ 'stratagem.settings': { nMapSize: 1 } });
  await extension.activate({ subscriptions: [] });
  const first = last();

  await world.handlers.configuration(changeOf('editor.fontSize'));
  assert.equal(first.notifications.length, 0, 'unrelated settings are ignored');

  world.settings['stratagem.settings'] = { nMapSize: 5 };
  world.settings['stratagem.defines'] = ['GIANT-MAP'];
  await world.handlers.configuration(changeOf('stratagem.settings', 'stratagem.defines'));
  assert.deepEqual(first.notifications, [
    {
      method: 'workspace/didChangeConfiguration',
      params: { settings: { mainFiles: [], settings: { nMapSize: 5 }, defines: ['GIANT-MAP'] } },
    },
  ]);
  assert.equal(world.clients.length, 1, 'no restart for analysis settings');

  world.settings['stratagem.serverPath'] = path.join(workspace, 'bin', 'stratagem-lsp');
  await world.handlers.configuration(changeOf('stratagem.serverPath'));
  assert.equal(world.clients.length, 2);
  assert.equal(first.running, false, 'the old server is stopped');
  assert.equal(last().running, true);
  assert.equal(last().serverOptions.run.command, path.join(workspace, 'bin', 'stratagem-lsp'));
  assert.deepEqual(last().clientOptions.initializationOptions.settings, { nMapSize: 5 });

  // Changes that come faster than a server starts still leave one server.
  world.settings['stratagem.serverPath'] = 'stratagem-lsp';
  await Promise.all([
    world.handlers.configuration(changeOf('stratagem.serverPath')),
    world.handlers.configuration(changeOf('stratagem.serverPath')),
    world.commands['stratagem.restartServer'](),
  ]);
  assert.equal(world.clients.filter((c) => c.running).length, 1);
  assert.equal(last().running, true);
  await extension.deactivate();
});

test('a server that is missing or cannot start is reported, and fixing the path starts it', async () => {
  reset({ 'stratagem.serverPath': 'stratagem-lsp-missing' });
  world.choice = 'Open Settings';
  await extension.activate({ subscriptions: [] });
  assert.equal(world.clients.length, 0, 'nothing is started for a missing program');
  assert.equal(world.errors.length, 1);
  assert.match(world.errors[0].message, /cannot find .*stratagem-lsp-missing.*PATH.*stratagem\.serverPath/);
  await new Promise(setImmediate);
  assert.deepEqual(world.executed, [['workbench.action.openSettings', 'stratagem.serverPath']]);

  world.failStart = true;
  world.settings['stratagem.serverPath'] = 'bin/stratagem-lsp';
  await world.handlers.configuration(changeOf('stratagem.serverPath'));
  assert.equal(world.errors.length, 2);
  assert.match(world.errors[1].message, /cannot start .*bin\/stratagem-lsp.*EACCES/);

  world.failStart = false;
  await world.handlers.configuration(changeOf('stratagem.defines'));
  assert.equal(last().running, true, 'a server that is not running is started by any change');
  assert.equal(world.errors.length, 2);
  await extension.deactivate();
});
