local n, g, known = 0, {}, {}
for i = 1, 1000 do g[i] = i known[i] = true end
for i = 1, 300000 do
  if known[i] then n = n + 1 end
  n = n + g[500]
  n = n - 500
end
io.write(string.format("%d", n))
