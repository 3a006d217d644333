i = s = 0
for n in range(3000000):
    i += 1
    if i == 3:
        s += 2
        i = 0
    else:
        s += 1
print(s, end="")
