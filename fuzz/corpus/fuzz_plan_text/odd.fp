f.A 1 2
NEW 5 6
x.y 1e1 -0x1p1