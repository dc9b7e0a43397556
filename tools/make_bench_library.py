#!/usr/bin/env python3
"""Writes a made-up library of N original factions into an application folder, shaped like
the one bench/import_bench.cpp builds (54 empathy lines and N starting reputations per entry,
five entries in each of the five lists), for measuring a whole program run from outside,
for example its system calls (see bench/system_calls.md).

Usage: python3 tools/make_bench_library.py APP_DIR [N]   (N defaults to 600)
"""

import os
import sys


def nick(i):
    return "f%d_grp" % (1000 + i)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    app = sys.argv[1]
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 600
    folders = {}
    for name in ("emphaty", "faction_prop", "initialworld"):
        folders[name] = os.path.join(app, "data", name, "original_factions")
        os.makedirs(folders[name], exist_ok=True)
    os.makedirs(os.path.join(app, "projects"), exist_ok=True)
    for i in range(count):
        reputation = ("[RepChangeEffects]\r\ngroup = %s\r\n"
                      "event = object_destruction, -0.05\r\n"
                      "event = random_mission_success, 0.03\r\n"
                      "event = random_mission_failure, -0.02\r\n"
                      "event = random_mission_abortion, -0.01\r\n" % nick(i))
        for j in range(54):
            reputation += "emphaty_rate = %s, 0.1\r\n" % nick((i + j + 1) % count)
        props = "[FactionProps]\r\naffiliation = %s\r\nlegality = lawful\r\n" % nick(i)
        for key in ("npc_ship", "voice", "space_costume", "scan_for_cargo", "formation"):
            for j in range(5):
                props += "%s = item_%d\r\n" % (key, j)
        world = ("[Group]\r\nnickname = %s\r\nids_name = 1\r\nids_info = 2\r\n"
                 "ids_short_name = 3\r\n" % nick(i))
        for j in range(count):
            world += "rep = 0.25, %s\r\n" % nick(j)
        for folder, text in (("emphaty", reputation), ("faction_prop", props),
                             ("initialworld", world)):
            with open(os.path.join(folders[folder], nick(i)), "wb") as out:
                out.write(text.encode("cp1252"))


if __name__ == "__main__":
    main()
