import sys
sys.stdout.write(open(sys.argv[1]).read().replace("left", "right"))
