local n = 0
local function add() n = n + 1 end
for i = 1, 1000000 do add() end
io.write(string.format("%d", n))
