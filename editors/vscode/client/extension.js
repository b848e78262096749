'use strict';
// Starts the stratagem-lsp language server for script files and keeps it
// informed of the strategy settings.
const os = require('os');
const vscode = require('vscode');
const { LanguageClient, TransportKind, DidChangeConfigurationNotification } = require('vscode-languageclient/node');
const { SECTION, analysisOptions, serverCommand } = require('./config');

const SCRIPT_FILES = '**/*.per';

let client;
let output;

function settingsReader() {
  const configuration = vscode.workspace.getConfiguration(SECTION);
  return (key) => configuration.get(key);
}

function workspaceFolderPath() {
  const folders = vscode.workspace.workspaceFolders;
  return folders && folders.length > 0 ? folders[0].uri.fsPath : undefined;
}

async function startClient() {
  const command = serverCommand(settingsReader()('serverPath'), workspaceFolderPath(), os.homedir());
  const executable = { command, transport: TransportKind.stdio };
  client = new LanguageClient(
    SECTION,
    'Stratagem',
    { run: executable, debug: executable },
    {
      // The server reads loaded files by name, so only documents with a path.
      documentSelector: [{ scheme: 'file', language: 'stratagem' }],
      initializationOptions: analysisOptions(settingsReader()),
      // Files the strategy loads change on disk too, open or not.
      synchronize: { fileEvents: vscode.workspace.createFileSystemWatcher(SCRIPT_FILES) },
      outputChannel: output,
    },
  );
  try {
    await client.start();
  } catch (error) {
    const reason = error && error.message ? error.message : String(error);
    vscode.window.showErrorMessage(
      `Stratagem: cannot start the language server '${command}' (${reason}). ` +
        'Build it and put it on PATH, or set stratagem.serverPath.',
    );
  }
}

async function stopClient() {
  if (!client) return;
  const running = client;
  client = undefined;
  try {
    await running.stop();
  } catch {
    // A server that never started has nothing to stop.
  }
}

async function restartClient() {
  await stopClient();
  await startClient();
}

// A new server program needs a new process; new analysis settings only a
// notification, after which the server analyses again.
async function onConfigurationChanged(event) {
  if (!event.affectsConfiguration(SECTION)) return;
  if (event.affectsConfiguration(`${SECTION}.serverPath`) || !client || !client.isRunning()) {
    await restartClient();
    return;
  }
  await client.sendNotification(DidChangeConfigurationNotification.type, {
    settings: analysisOptions(settingsReader()),
  });
}

async function activate(context) {
  output = vscode.window.createOutputChannel('Stratagem');
  context.subscriptions.push(
    output,
    vscode.workspace.onDidChangeConfiguration(onConfigurationChanged),
    vscode.commands.registerCommand('stratagem.restartServer', restartClient),
  );
  await startClient();
}

function deactivate() {
  return stopClient();
}

module.exports = { activate, deactivate };
