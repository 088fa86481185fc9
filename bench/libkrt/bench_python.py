#!/usr/bin/env python3
"""krt.encode_many over 1,000,000 EAN-13 contents (12 digits, check added): contents per second.

Usage: PYTHONPATH=BUILD/libkrt/python bench/libkrt/bench_python.py [COUNT]
"""
import random
import sys
import time

import krt

count = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
rng = random.Random(20240601)
contents = ["%012d" % rng.randrange(10**12) for _ in range(count)]

best = None
for _ in range(3):
    start = time.perf_counter()
    glyphs = krt.encode_many("EAN13", contents, check=True)
    elapsed = time.perf_counter() - start
    best = elapsed if best is None else min(best, elapsed)
assert len(glyphs) == count and all(glyphs[:1000])

start = time.perf_counter()
for c in contents[:100_000]:
    krt.encode("EAN13", c, check=True)
single = time.perf_counter() - start

rate = count / best
print(f"krt.encode_many EAN13 check: {count} contents in {best:.3f} s (best of 3) = {rate / 1e6:.2f} M contents/s"
      f" (target 1 M/s){'' if rate >= 1e6 else '  BELOW TARGET'}")
print(f"krt.encode one at a time:    100000 contents in {single:.3f} s = {100_000 / single / 1e6:.2f} M contents/s")
