local i, s = 0, 0
for n = 1, 3000000 do
  i = i + 1
  if i == 3 then s = s + 2 i = 0 else s = s + 1 end
end
io.write(string.format("%d", s))
