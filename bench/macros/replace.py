import sys
lines = open(sys.argv[1]).read().split("\n")
for n in range(100000):
    line = lines[n]
    if line.find("left") >= 0:
        lines[n] = line.replace("left", "right")
sys.stdout.write("\n".join(lines))
