n = 0
g = []
for i in range(1, 1001):
    g.append(i)
known = set(g)
for i in range(1, 300001):
    if i in known:
        n += 1
    n += g[499]
    n -= 500
print(n, end="")
