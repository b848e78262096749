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
    '(defconst goal-attack 3)',
    '(load "rules")',
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
  local rules_path = dir .. '/rules.per'
  write(rules_path, {
    '; Rules loaded after the constants.',
    '(defrule',
    '    (goal goal-attack 2)',
    '=>',
    '    (disable-self))',
  })

  package.path = source_dir .. '/editors/nvim/?.lua;' .. package.path
  local exit_code
  require('stratagem').setup({
    cmd = { lsp_binary },
    on_exit = function(code) exit_code = code end,
  })
  vim.cmd('edit ' .. vim.fn.fnameescape(main_path))
  local buf = vim.api.nvim_get_current_buf()
  check(vim.bo[buf].filetype == 'stratagem', 'file type is set')

  -- Diagnostics: the misspelt fact, at the word's range.
  vim.wait(timeout, function() return #vim.diagnostic.get(buf) > 0 end, 20)
  local diagnostics = vim.diagnostic.get(buf)
  if check(#diagnostics == 1, 'one diagnostic for the misspelt fact (got ' .. #diagnostics .. ')') then
    local d = diagnostics[1]
    check(d.lnum == 5 and d.col == 5 and d.end_lnum == 5 and d.end_col == 15,
      string.format('diagnostic range 5:5-5:15 (got %d:%d-%d:%d)', d.lnum, d.col, d.end_lnum, d.end_col))
    check(d.severity == vim.diagnostic.severity.ERROR, 'diagnostic is an error')
    check(d.message:find('food-amout', 1, true) ~= nil, 'diagnostic names the word: ' .. d.message)
    check(d.message:find('food-amount', 1, true) ~= nil, 'diagnostic suggests food-amount')
  end

  local uri = vim.uri_from_bufnr(buf)
  local function request(method, line, character, extra)
    local params = { textDocument = { uri = vim.uri_from_bufnr(0) }, position = { line = line, character = character } }
    for k, v in pairs(extra or {}) do params[k] = v end
    local responses = vim.lsp.buf_request_sync(buf, method, params, timeout)
    for _, response in pairs(responses or {}) do
      if response.result then return response.result end
    end
    return nil
  end

  -- Hover over an action: its signature and parameter types.
  local hover = request('textDocument/hover', 7, 6)
  check(hover and hover.contents and hover.contents.value:find('train', 1, true) ~= nil, 'hover shows train')

  -- Hover over a constant: its value.
  hover = request('textDocument/hover', 10, 12)
  check(hover and hover.contents.value:find('3', 1, true) ~= nil, 'hover shows the value of goal-attack')

  -- Completion where a condition goes: facts and connectives, no actions.
  local completion = request('textDocument/completion', 10, 5)
  local labels = {}
  for _, item in ipairs((completion and (completion.items or completion)) or {}) do labels[item.label] = true end
  check(labels['food-amount'] and labels['not'], 'completion offers facts and connectives')
  check(not labels['train'], 'completion offers no action in a condition')

  -- Completion at an action's argument: the words of its type.
  completion = request('textDocument/completion', 7, 11)
  labels = {}
  for _, item in ipairs((completion and (completion.items or completion)) or {}) do labels[item.label] = true end
  check(labels['villager'] and not labels['food-amount'], 'completion offers units for train')

  -- Definition of a constant: its defconst.
  local definition = request('textDocument/definition', 10, 12)
  local location = definition and (definition[1] or definition)
  check(location and location.uri == uri and location.range.start.line == 1, 'definition goes to the defconst')

  -- Definition of a load string: the file it loads.
  definition = request('textDocument/definition', 2, 8)
  location = definition and (definition[1] or definition)
  check(location and location.uri == vim.uri_from_fname(rules_path), 'definition of a load goes to the file')

  -- The loaded file is analysed in the main file's strategy: its constant is known.
  vim.cmd('edit ' .. vim.fn.fnameescape(rules_path))
  local rules_buf = vim.api.nvim_get_current_buf()
  vim.wait(timeout, function() return #vim.lsp.buf_get_clients(rules_buf) > 0 end, 20)
  hover = request('textDocument/hover', 2, 12)
  check(hover and hover.contents.value:find('= 3', 1, true) ~= nil, 'hover in a loaded file knows the constant')
  check(#vim.diagnostic.get(rules_buf) == 0, 'no diagnostics in the loaded file')
  vim.cmd('buffer ' .. buf)

  -- Edit the mistake away: the diagnostics clear.
  vim.api.nvim_buf_set_text(buf, 5, 5, 5, 15, { 'food-amount' })
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
