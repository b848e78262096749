'use strict';
// Starts the stratagem-lsp language server for script files and keeps it
// informed of the strategy settings.
const os = require('os');
const vscode = require('vscode');
const { LanguageClient, TransportKind, DidChangeConfigurationNotification } = require('vscode-languageclient/node');
const { SECTION, analysisOptions, serverCommand, locateProgram } = require('./config');

const SCRIPT_FILES = '**/*.per';

let client;
let output;
let scriptWatcher;
let lifecycle = Promise.resolve();

// Starts, stops and restarts run one after another: two quick changes of
// the settings must not leave two servers running side by side.
function queued(step) {
  const run = lifecycle.then(step);
  lifecycle = run.catch(() => {});
  return run;
}

function settingsReader() {
  const configuration = vscode.workspace.getConfiguration(SECTION);
  return (key) => configuration.get(key);
}

function workspaceFolderPath() {
  const folders = vscode.workspace.workspaceFolders;
  return folders && folders.length > 0 ? folders[0].uri.fsPath : undefined;
}

const OPEN_SETTINGS = 'Open Settings';

// Not awaited: the message stays until the user dismisses it, and the
// queue must not wait that long.
function reportServerProblem(problem) {
  const message = `Stratagem: ${problem}. Build it and put it on PATH, or set ${SECTION}.serverPath.`;
  Promise.resolve(vscode.window.showErrorMessage(message, OPEN_SETTINGS)).then((choice) => {
    if (choice === OPEN_SETTINGS) vscode.commands.executeCommand('workbench.action.openSettings', `${SECTION}.serverPath`);
  });
}

async function startClient() {
  const command = serverCommand(settingsReader()('serverPath'), workspaceFolderPath(), os.homedir());
  const program = locateProgram(command, process.env.PATH);
  if (!program) {
    reportServerProblem(`cannot find the language server '${command}'`);
    return;
  }
  const executable = { command: program, transport: TransportKind.stdio };
  client = new LanguageClient(
    SECTION,
    'Stratagem',
    { run: executable, debug: executable },
    {
      // The server reads loaded files by name, so only documents with a path.
      documentSelector: [{ scheme: 'file', language: 'stratagem' }],
      initializationOptions: analysisOptions(settingsReader()),
      // Files the strategy loads change on disk too, open or not.
      synchronize: { fileEvents: scriptWatcher },
      outputChannel: output,
    },
  );
  try {
    await client.start();
  } catch (error) {
    const reason = error && error.message ? error.message : String(error);
    reportServerProblem(`cannot start the language server '${program}' (${reason})`);
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
function onConfigurationChanged(event) {
  if (!event.affectsConfiguration(SECTION)) return undefined;
  return queued(async () => {
    if (event.affectsConfiguration(`${SECTION}.serverPath`) || !client || !client.isRunning()) {
      await restartClient();
      return;
    }
    await client.sendNotification(DidChangeConfigurationNotification.type, {
      settings: analysisOptions(settingsReader()),
    });
  });
}

async function activate(context) {
  output = vscode.window.createOutputChannel('Stratagem');
  // One watcher for the extension's life: the language client only listens
  // to it and never disposes of it.
  scriptWatcher = vscode.workspace.createFileSystemWatcher(SCRIPT_FILES);
  context.subscriptions.push(
    output,
    scriptWatcher,
    vscode.workspace.onDidChangeConfiguration(onConfigurationChanged),
    vscode.commands.registerCommand('stratagem.restartServer', () => queued(restartClient)),
  );
  await queued(startClient);
}

function deactivate() {
  return queued(stopClient);
}

module.exports = { activate, deactivate };
