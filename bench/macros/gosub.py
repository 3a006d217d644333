n = 0
def add():
    global n
    n += 1
for i in range(1000000):
    add()
print(n, end="")
