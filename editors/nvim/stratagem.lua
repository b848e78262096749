-- Neovim (0.7 or later) set-up for strategy scripts: the file type and the
-- language server. Put this file on 'runtimepath' under lua/ (or anywhere on
-- package.path) and call, in init.lua:
--
--   require('stratagem').setup({
--     cmd = { 'stratagem-lsp' },                  -- the server, if not on PATH
--     init_options = {                             -- all optional
--       mainFiles = { 'main.per' },                -- relative to the root
--       settings = { nMapSize = 5 },               -- as stratagem --set
--       defines = { 'REGICIDE' },                  -- as stratagem -D
--     },
--   })
local M = {}

local clients = {} -- one server per root directory

local function root_of(path)
  -- The nearest directory above the file holding a main.per, else the
  -- file's own directory.
  local dir = vim.fn.fnamemodify(path, ':p:h')
  local found = vim.fn.findfile('main.per', dir .. ';')
  if found ~= '' then
    return vim.fn.fnamemodify(found, ':p:h')
  end
  return dir
end

function M.setup(opts)
  opts = opts or {}
  vim.api.nvim_create_autocmd({ 'BufRead', 'BufNewFile' }, {
    pattern = '*.per',
    command = 'setfiletype stratagem',
  })
  vim.api.nvim_create_autocmd('FileType', {
    pattern = 'stratagem',
    callback = function(args)
      local root = opts.root_dir or root_of(vim.api.nvim_buf_get_name(args.buf))
      local id = clients[root]
      if not id or not vim.lsp.get_client_by_id(id) then
        id = vim.lsp.start_client({
          name = 'stratagem',
          cmd = opts.cmd or { 'stratagem-lsp' },
          root_dir = root,
          workspace_folders = { { uri = vim.uri_from_fname(root), name = root } },
          init_options = opts.init_options or vim.empty_dict(),
          on_exit = opts.on_exit,
        })
        clients[root] = id
      end
      if id then
        vim.lsp.buf_attach_client(args.buf, id)
      end
      vim.bo[args.buf].commentstring = ';%s'
      vim.bo[args.buf].omnifunc = 'v:lua.vim.lsp.omnifunc'
    end,
  })
end

return M
