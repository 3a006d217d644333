local lines = {}
for n = 1, 200000 do
  lines[#lines + 1] = string.format("custom_%d.moving.left.xpos:      %d\n", n, n)
end
io.write(table.concat(lines))
