local lines = {}
for line in io.lines(arg[1]) do lines[#lines + 1] = line end
for n = 1, 100000 do
  local line = lines[n]
  if line:find("left", 1, true) then lines[n] = line:gsub("left", "right") end
end
io.write(table.concat(lines, "\n"), "\n")
