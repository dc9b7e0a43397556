#!/usr/bin/env python3
"""Writes the shipped library of original factions under data/.

One faction per faction prefix of the ship catalogue (the part of a ship nickname before
its second underscore), nicknamed prefix + "_grp". Every value is made up here from a few
simple rules (house, law-abidingness, role) and a stable hash, so running the script again
gives the same bytes. The three files of each faction are written in the compiled block
form, which the importers read:

  data/emphaty/original_factions/<nick>       [RepChangeEffects] block
  data/faction_prop/original_factions/<nick>  [FactionProps] block
  data/initialworld/original_factions/<nick>  [Group] block

Usage: python3 tools/make_original_library.py [REPO_ROOT]
"""

import hashlib
import os
import re
import sys

CATALOGUES = os.path.join("src", "factionprops", "Catalogues.cpp")
FOLDERS = {
    "reputation": os.path.join("data", "emphaty", "original_factions"),
    "props": os.path.join("data", "faction_prop", "original_factions"),
    "world": os.path.join("data", "initialworld", "original_factions"),
}

# Prefixes whose factions live outside the law; every "fc" house does too.
UNLAWFUL = {"co_alg", "co_nws", "co_os", "co_rs", "gd_bh", "gd_z"}
HOUSES_WITH_NAVY = {"br", "ku", "li", "rh"}


def read_catalogue(source, array):
    """The quoted items of one array of the catalogue source, in order."""
    match = re.search(r"\b" + re.escape(array) + r"\[\]\s*=\s*\{(.*?)\};", source, re.S)
    if not match:
        sys.exit("catalogue %s not found in %s" % (array, CATALOGUES))
    return re.findall(r'"([^"]*)"', match.group(1))


def stable(*parts):
    """A number in [0, 1) that depends only on the parts."""
    digest = hashlib.sha256("|".join(parts).encode("ascii")).digest()
    return int.from_bytes(digest[:8], "big") / 2.0**64


def pick(items, count, *seed):
    """count distinct items, chosen by the seed, kept in catalogue order."""
    ranked = sorted(items, key=lambda item: stable(item, *seed))
    chosen = set(ranked[:count])
    return [item for item in items if item in chosen]


def number(value):
    text = "%.2f" % value
    text = text.rstrip("0").rstrip(".") if "." in text else text
    return "0" if text in ("-0", "") else text


def case_insensitive(name):
    return (name.lower(), name)


class Faction:
    def __init__(self, prefix, index):
        self.prefix = prefix
        self.nick = prefix + "_grp"
        self.index = index
        self.house, self.role = prefix.split("_", 1)
        self.lawful = self.house != "fc" and prefix not in UNLAWFUL
        self.navy = self.house in HOUSES_WITH_NAVY and self.role == "n"
        self.police = self.house in HOUSES_WITH_NAVY and self.role == "p"


def reputation_between(a, b):
    if a is b:
        return "1"
    jitter = (stable(a.nick, b.nick, "rep") - 0.5) * 0.3
    if a.house == b.house:
        base = 0.6
    elif a.lawful != b.lawful:
        base = -0.65
    elif a.lawful:
        base = 0.15
    else:
        base = 0.05
    return number(max(-0.91, min(0.91, base + jitter)))


def empathy_between(a, b):
    jitter = (stable(a.nick, b.nick, "emp") - 0.5) * 0.1
    if a.house == b.house:
        base = 0.3
    elif a.lawful != b.lawful:
        base = -0.2
    else:
        base = 0.05
    return number(base + jitter)


def reputation_file(faction, factions):
    event = lambda low, high, name: number(low + (high - low) * stable(faction.nick, name))
    lines = [
        "[RepChangeEffects]",
        "group = " + faction.nick,
        "event = object_destruction, " + event(-0.1, -0.03, "od"),
        "event = random_mission_success, " + event(0.01, 0.06, "rms"),
        "event = random_mission_failure, " + event(-0.05, -0.02, "rmf"),
        "event = random_mission_abortion, " + event(-0.04, -0.01, "rma"),
    ]
    for other in factions:
        if other is not faction:
            lines.append("emphaty_rate = %s, %s" % (other.nick, empathy_between(faction, other)))
    return lines


def props_file(faction, catalogues):
    f = faction
    ids = 300000 + f.index * 50
    ships = [s for s in catalogues["ships"] if s.split("_")[0] + "_" + s.split("_")[1] == f.prefix]
    voice_kind = "_mil_" if (f.navy or f.police) else ("_ill_" if not f.lawful else "_leg_")
    voices = pick([v for v in catalogues["voices"] if voice_kind in v], 3, f.nick, "voice")

    def parts(catalogue, starts, fallback, count):
        own = [p for p in catalogue if p.startswith(starts)]
        return pick(own if own else [p for p in catalogue if p.startswith(fallback)], count,
                    f.nick, starts, str(count))

    house_part = f.house + "_" if f.house in HOUSES_WITH_NAVY else ("pi_" if not f.lawful else "pl_")
    heads = parts(catalogues["heads"], house_part, "ge_", 2)
    bodies = parts(catalogues["bodies"], house_part, "pl_", 2)
    comms = parts(catalogues["comms"], "comm_" + house_part, "comm_ge_", 1)
    body_lines = ["%s, %s, %s" % (h, b, comms[0]) for h, b in zip(heads, bodies)]

    # Everyone looks for something in a hold: patrols for contraband, the rest for loot.
    scans = pick(catalogues["scans"], 3 if f.police or f.navy else 1, f.nick, "scan")
    own_formations = [x for x in catalogues["formations"] if x.endswith(f.prefix) or f.house in x]
    formations = pick(own_formations or catalogues["formations"], 2, f.nick, "formation")
    classes = pick(catalogues["classes"], len(formations), f.nick, "class")
    formation_lines = ["%s, %s" % pair for pair in zip(classes, formations)]

    costume = "mc_" + f.house
    lines = [
        "[FactionProps]",
        "affiliation = " + f.nick,
        "legality = " + ("lawful" if f.lawful else "unlawful"),
        "nickname_plurality = " + ("plural" if f.navy or f.police else "singular"),
        "msg_id_prefix = gcs_refer_faction_" + f.prefix,
        "jump_preference = " + ("jumpgate" if f.lawful else "jumphole" if f.house == "fc" else "both"),
    ]
    lines += ["npc_ship = " + s for s in ships]
    lines += ["voice = " + v for v in voices]
    lines.append("mc_costume = " + (costume if costume in catalogues["costumes"] else ""))
    lines += ["space_costume = " + b for b in body_lines]
    lines += [
        "firstname_male = %d, %d" % (ids, ids + 11),
        "firstname_female = %d, %d" % (ids + 12, ids + 19),
        "lastname = %d, %d" % (ids + 20, ids + 31),
        "rank_desig = %d, %d, %d, %d, %d" % tuple(ids + 32 + i for i in range(5)),
        "formation_desig = %d, %d" % (ids + 37, ids + 38),
    ]
    # Every faction names its capital ships, a navy just has more names for them.
    lines += ["large_ship_desig = %d" % (ids + 39),
              "large_ship_names = %d, %d" % (ids + 40, ids + (47 if f.navy else 42))]
    lines += ["scan_for_cargo = " + s for s in scans]
    if f.police or f.navy:
        lines += ["scan_announce = True", "scan_chance = " + number(0.3 + 0.4 * stable(f.nick, "chance"))]
    else:
        lines += ["scan_announce = False", "scan_chance = " + number(0.05 + 0.1 * stable(f.nick, "chance"))]
    lines += ["formation = " + x for x in formation_lines]
    return lines


def world_file(faction, factions):
    ids = 420000 + faction.index * 3
    lines = [
        "[Group]",
        "nickname = " + faction.nick,
        "ids_name = %d" % ids,
        "ids_info = %d" % (ids + 1),
        "ids_short_name = %d" % (ids + 2),
    ]
    lines += ["rep = %s, %s" % (reputation_between(faction, other), other.nick) for other in factions]
    return lines


def write(path, lines):
    with open(path, "wb") as out:
        out.write("".join(line + "\r\n" for line in lines).encode("cp1252"))


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    with open(os.path.join(root, CATALOGUES), encoding="utf-8") as source_file:
        source = source_file.read()
    catalogues = {
        "ships": read_catalogue(source, "kShips"),
        "voices": read_catalogue(source, "kVoices"),
        "scans": read_catalogue(source, "kScanCommodities"),
        "classes": read_catalogue(source, "kFormationClasses"),
        "formations": read_catalogue(source, "kFormations"),
        "costumes": read_catalogue(source, "kCostumes"),
        "heads": read_catalogue(source, "kHeads"),
        "bodies": read_catalogue(source, "kBodies"),
        "comms": read_catalogue(source, "kCommAccessories"),
    }
    prefixes = sorted({"_".join(ship.split("_")[:2]) for ship in catalogues["ships"]},
                      key=lambda p: case_insensitive(p + "_grp"))
    factions = [Faction(prefix, i) for i, prefix in enumerate(prefixes)]

    for folder in FOLDERS.values():
        folder = os.path.join(root, folder)
        os.makedirs(folder, exist_ok=True)
        for name in os.listdir(folder):
            os.remove(os.path.join(folder, name))
    for f in factions:
        write(os.path.join(root, FOLDERS["reputation"], f.nick), reputation_file(f, factions))
        write(os.path.join(root, FOLDERS["props"], f.nick), props_file(f, catalogues))
        write(os.path.join(root, FOLDERS["world"], f.nick), world_file(f, factions))
    print("%d factions written" % len(factions))


if __name__ == "__main__":
    main()
