-- End-to-end test with a real client: headless Neovim starts the server
-- through the set-up users add (editors/nvim/stratagem.lua), on a copy of
-- the test strategy with one mistake, and checks diagnostics, hover,
-- completion, definition, an edit that removes the mistake, and a clean
-- shutdown. Exits with status 0 when every check holds.
local lsp_binary = assert(os.getenv('STRATAGEM_LSP'), 'STRATAGEM_LSP not set')
local source_dir = assert(os.getenv('STRATAGEM_SOURCE_DIR'), 'STRATAGEM_SOURCE_DIR not set')
local timeout = 20000

local failures = {}
local function check(condition, what)
  if not condition then
    table.insert(failures, what)
    io.stderr:write('FAIL: ' .. what .. '\n')
  else
    io.stdout:write('ok: ' .. what .. '\n')
  end
  return condition
end

local function write(path, lines)
  local file = assert(io.open(path, 'w'))
  file:write(table.concat(lines, '\n') .. '\n')
  file:close()
end

local function run()
  local dir = vim.fn.tempname()
  vim.fn.mkdir(dir, 'p')
  local main_path = dir .. '/main.per'
  write(main_path, {
    '; A small strategy with one mistake.',
    '(load "constants")',
    '',
    '(defrule',
    '    (food-amout < 50)',
    '=>',
    '    (train villager))',
    '',
    '(defrule',
    '    (goal goal-attack 1)',
    '=>',
    '    (set-goal goal-attack 2))',
  })
  write(dir .. '/constants.per', { '; Shared names.', '(defconst goal-attack 3)' })

  package.path = source_dir .. '/editors/nvim/?.lua;' .. package.path
  local exit_code
  require('stratagem').setup({
    cmd = { lsp_binary },
    on_exit = function(code) exit_code = code end,
  })
  vim.cmd('filetype on')
  vim.cmd('edit ' .. vim.fn.fnameescape(main_path))
  local buf = vim.api.nvim_get_current_buf()
  check(vim.bo[buf].filetype == 'stratagem', 'file type is set')

  -- Diagnostics: the misspelt fact, at the word's range.
  vim.wait(timeout, function() return #vim.diagnostic.get(buf) > 0 end, 20)
  local diagnostics = vim.diagnostic.get(buf)
  if check(#diagnostics == 1, 'one diagnostic for the misspelt fact (got ' .. #diagnostics .. ')') then
    local d = diagnostics[1]
    check(d.lnum == 4 and d.col == 5 and d.end_lnum == 4 and d.end_col == 15,
      string.format('diagnostic range 4:5-4:15 (got %d:%d-%d:%d)', d.lnum, d.col, d.end_lnum, d.end_col))
    check(d.severity == vim.diagnostic.severity.ERROR, 'diagnostic is an error')
    check(d.message:find('food-amout', 1, true) ~= nil, 'diagnostic names the word: ' .. d.message)
    check(d.message:find('food-amount', 1, true) ~= nil, 'diagnostic suggests food-amount')
  end

  local uri = vim.uri_from_bufnr(buf)
  local function request(method, line, character, extra)
    local params = { textDocument = { uri = uri }, position = { line = line, character = character } }
    for k, v in pairs(extra or {}) do params[k] = v end
    local responses = vim.lsp.buf_request_sync(buf, method, params, timeout)
    for _, response in pairs(responses or {}) do
      if response.result then return response.result end
    end
    return nil
  end

  -- Hover over an action: its signature and parameter types.
  local hover = request('textDocument/hover', 6, 6)
  check(hover and hover.contents and hover.contents.value:find('train', 1, true) ~= nil, 'hover shows train')

  -- Hover over a constant: its value.
  hover = request('textDocument/hover', 9, 12)
  check(hover and hover.contents.value:find('3', 1, true) ~= nil, 'hover shows the value of goal-attack')

  -- Completion where a condition goes: facts and connectives, no actions.
  local completion = request('textDocument/completion', 9, 5)
  local labels = {}
  for _, item in ipairs((completion and (completion.items or completion)) or {}) do labels[item.label] = true end
  check(labels['food-amount'] and labels['not'], 'completion offers facts and connectives')
  check(not labels['train'], 'completion offers no action in a condition')

  -- Completion at an action's argument: the words of its type.
  completion = request('textDocument/completion', 6, 11)
  labels = {}
  for _, item in ipairs((completion and (completion.items or completion)) or {}) do labels[item.label] = true end
  check(labels['villager'] and not labels['food-amount'], 'completion offers units for train')

  -- Definition of a constant: its defconst in the loaded file.
  local definition = request('textDocument/definition', 9, 12)
  local location = definition and (definition[1] or definition)
  check(location and location.uri and location.uri:find('constants.per', 1, true) ~= nil
    and location.range.start.line == 1, 'definition goes to the defconst')

  -- Edit the mistake away: the diagnostics clear.
  vim.api.nvim_buf_set_text(buf, 4, 5, 4, 15, { 'food-amount' })
  vim.wait(timeout, function() return #vim.diagnostic.get(buf) == 0 end, 20)
  check(#vim.diagnostic.get(buf) == 0, 'diagnostics clear after the fix')

  -- A clean shutdown: the server ends with status 0.
  vim.lsp.stop_client(vim.lsp.get_active_clients())
  vim.wait(timeout, function() return exit_code ~= nil end, 20)
  check(exit_code == 0, 'server exits with status 0 (got ' .. tostring(exit_code) .. ')')
  vim.fn.delete(dir, 'rf')
end

local ok, err = pcall(run)
if not ok then
  check(false, 'test script error: ' .. tostring(err))
end
if #failures > 0 then
  vim.cmd('cquit 1')
else
  vim.cmd('qall!')
end
