import sys
lines = []
for n in range(1, 200001):
    lines.append("custom_%d.moving.left.xpos:      %d\n" % (n, n))
sys.stdout.write("".join(lines))
