#!/usr/bin/env python3
"""What is mapped into a CAD drawing, against a second way to it: every entity of three whole runs.

    python3 map_test.py NOLDARZ-CLI EXAMPLES

Maps the zones of the example scripts into a blank drawing through the script front, and works out circles,
texts, outlines, their control points, turn and area from the figures of the run: the widths with the formulas
of reference_model.py, the curve as a natural cubic spline in pieces, the area by a fine polygon.
"""
import json
import subprocess
import sys
import tempfile
from math import cos, hypot, sin

import reference_model as model
from plots_test import Run, differs

COLOURS = [1, 6, 5, 4, 3, 3]
TEXTS, ZONES = "Conc Zones1 Text", "Conc Zones1"
INPUTS = "scnrotypetxt QntyRelstxt molwttxt vapordnstytxt stblclscbo htsmul enddisttxt".split()
LEVELS = [f"{name}({i})" for name in ("constn", "bgnpt", "endpt", "isoplngt", "isopwdth") for i in range(6)]
STATES = "htRelease htSimul windAtHeight".split()
HAZARDS = [(2, None, 2, "TEEL3/IDLH:", "Fatel Hazard"), (3, 2, 3, "TEEL2:", "High Hazard"),
           (4, 3, 4, "TEEL1:", "Medium Hazard"), (5, 4, 4, "TEEL1:", "Low Hazard"), (None, 5, 5, "TEEL0:", "Safe")]
SOURCE, PLACES = (1000.25, -350.5), [(1100.25, -350.5), (1000.25, 49.5)]


def ask(cli, script, wind, scale):
    """The figures of the run, the areas that the main view shows, and the entities of the drawing."""
    pick = lambda p: f"answer {p[0]},{p[1]}"
    lines = ["set scnrotxtlbl caption Hose"]
    lines += [f"show {field}" for field in INPUTS + LEVELS] + ["state " + " ".join(STATES)]
    lines += [f"show conclbl({i}) caption" for i in range(6)]
    lines += ['choose prntprv "Plot Hazard Zones"', f"slide zardzone.wndsld1 {wind}"]
    lines += [] if scale == 1 else [f"enter zardzone.sclenotxt {scale}"]
    lines += ["answer blank.dxf", "click zardzone.nwdrg", pick(SOURCE), "click zardzone.getcoords",
              pick(SOURCE), "answer ok", pick(PLACES[0]), "answer yes", pick(PLACES[1]), "answer no",
              "click zardzone.getcoords_1", "drawing zardzone.cad"]
    lines += [f"show isoparea({i})" for i in range(6)]
    with open(script, encoding="utf-8") as file, tempfile.TemporaryDirectory() as folder:
        text = file.read() + "\n" + "\n".join(lines).replace("blank.dxf", folder + "/blank.dxf") + "\n"
        out = subprocess.run([cli, "script", "-"], input=text, capture_output=True, text=True, check=True,
                             env={"HOME": folder, "PATH": "/usr/bin:/bin"}).stdout
    figures, entities = {}, []
    for line in map(json.loads, out.splitlines()):
        if "field" in line:
            figures[line["field"].split(".")[1]] = str(line.get("text", line.get("caption")))
        figures.update({line["state"]: line["value"]} if "state" in line else {})
        entities = line.get("entities", entities)
    return figures, entities


def natural_spline(points):
    """Pieces (t0, t1, a, b, c, d) per coordinate of a natural cubic spline with chord lengths as parameters."""
    t = [0.0]
    for p, q in zip(points, points[1:]):
        t.append(t[-1] + hypot(q[0] - p[0], q[1] - p[1]))
    n, h = len(points) - 1, [b - a for a, b in zip(t, t[1:])]
    pieces = []
    for axis in (0, 1):
        y = [p[axis] for p in points]
        low, mu, z = 1.0, [0.0] * (n + 1), [0.0] * (n + 1)
        for i in range(1, n):
            alpha = 3 / h[i] * (y[i + 1] - y[i]) - 3 / h[i - 1] * (y[i] - y[i - 1])
            low = 2 * (t[i + 1] - t[i - 1]) - h[i - 1] * mu[i - 1]
            mu[i], z[i] = h[i] / low, (alpha - h[i - 1] * z[i - 1]) / low
        c = [0.0] * (n + 1)
        for j in range(n - 1, -1, -1):
            c[j] = z[j] - mu[j] * c[j + 1]
        pieces.append([(t[j], h[j], y[j], (y[j + 1] - y[j]) / h[j] - h[j] * (c[j + 1] + 2 * c[j]) / 3, c[j],
                        (c[j + 1] - c[j]) / (3 * h[j])) for j in range(n)])
    return t, pieces


def control_points(points):
    """Of a B-spline with those pieces; a doubled point puts one more knot into the middle of the stretch before it."""
    nothing = 1e-9 * max(abs(x) for p in points for x in p)
    doubled = lambda i: i > 0 and hypot(points[i][0] - points[i - 1][0], points[i][1] - points[i - 1][1]) <= nothing
    distinct = [p for i, p in enumerate(points) if not doubled(i)]
    t, pieces = natural_spline(distinct)
    inner = list(t)
    for i in range(len(points)):
        if doubled(i):
            k = distinct.index(points[i - 1])
            inner.append((t[k - 1] + t[k]) / 2)
    knots = [t[0]] * 3 + sorted(inner) + [t[-1]] * 3

    def blossom(axis, i):
        middle = (max(knots[i], knots[3]) + min(knots[i + 4], knots[-4])) / 2
        t0, h, a, b, c, d = next(p for p in reversed(pieces[axis]) if p[0] <= middle)
        u, v, w = (knot - t0 for knot in knots[i + 1:i + 4])
        return a + b * (u + v + w) / 3 + c * (u * v + u * w + v * w) / 3 + d * u * v * w

    return knots, [[blossom(0, i), blossom(1, i)] for i in range(len(knots) - 4)]


def polygon_area(knots, control):
    """Shoelace over many points of the curve (de Boor's algorithm)."""
    def at(u):
        k = max(i for i in range(3, len(control)) if knots[i] <= u)
        d = [control[k - 3 + j] for j in range(4)]
        for r in range(1, 4):
            for j in range(3, r - 1, -1):
                low = knots[k - 3 + j]
                a = (u - low) / (knots[k + 1 + j - r] - low)
                d[j] = [(1 - a) * p + a * q for p, q in zip(d[j - 1], d[j])]
        return d[3]

    curve = [at(knots[0] + (knots[-1] - knots[0]) * i / 4000) for i in range(4001)]
    x0, y0 = curve[0]
    return abs(sum((p[0] - x0) * (q[1] - y0) - (q[0] - x0) * (p[1] - y0) for p, q in zip(curve, curve[1:]))) / 2


def outline(run, level, s, z, wind):
    f = run.f
    number = lambda name: model.number(f[f"{name}({level})"])
    begin, end = model.rounded(number("bgnpt"), 3), model.rounded(number("endpt"), 3)
    step = model.rounded(number("isoplngt") / 10, 3)
    place = lambda x, side, w: (x * s + SOURCE[0], SOURCE[1] + side * w * s, z)
    points, x, i = [], begin, 1
    while x <= end:
        points.append(place(x, -1, 0 if i in (1, 11) else run.half_width(x, level, False)))
        x, i = x + step, i + 1
    x, i = end, 11
    while x >= begin:
        points.append(place(x, 1, 0 if i in (11, 22) else run.half_width(x, level, False)))
        x, i = x - step, i + 1
    points = (points + [(0, 0, 0)] * 22)[:21]
    first = points[0]
    points[20] = first
    knots, control = control_points(points)
    bulge = number("isopwdth") * 0.085 * s
    control[1], control[21] = [first[0], first[1] - bulge], [first[0], first[1] + bulge]
    area = polygon_area(knots, control)
    turn = 90 / 57.3 - wind / 57.3
    turned = [[SOURCE[0] + (p[0] - SOURCE[0]) * cos(turn) - (p[1] - SOURCE[1]) * sin(turn),
               SOURCE[1] + (p[0] - SOURCE[0]) * sin(turn) + (p[1] - SOURCE[1]) * cos(turn), z] for p in control]
    return {"fit": [list(p) for p in points], "turned": turn, "control": turned, "area": area}


def expected(run, wind, s):
    f, (x, y) = run.f, SOURCE
    height = model.number(f["htsmul"])
    z = height * s
    lead = lambda low: ["Line", TEXTS, 7, x, y, low, x + 2.5 * s, y + 2.5 * s, z]
    name = ["Text", TEXTS, 7, x + 2.5 * s, y + 2.5 * s, z, 10, "Hose"]
    yield lead(z)
    yield name
    for level in range(5, -1, -1):
        yield ["Circle", TEXTS, COLOURS[level], x, y, z, model.number(f[f"endpt({level})"]) * s]
    yield ["Circle", ZONES, 7, x, y, z, s]
    for level in range(5, -1, -1):
        if f[f"bgnpt({level})"] in ("0", "N.A.", ">" + f["enddisttxt"]):
            continue
        end = model.number(f[f"endpt({level})"])
        yield ["Text", ZONES, 256, sin(wind * 0.0175) * end * s + x, cos(wind * 0.0175) * end * s + y, s, 10,
               " " + model.fmt(end) + " m"]
        yield ["Spline", ZONES, COLOURS[level], outline(run, level, s, z, wind)]
    yield ["Circle", TEXTS, 7, x, y, height, s]
    yield lead(height)
    yield name
    for px, py in PLACES:
        away = model.rounded(hypot(y - py, x - px)) / s
        conc = run.concentration(away)
        text = "  Conc.: " + model.fmt(conc) + " ppm"
        bounds = [model.number(f[f"constn({i})"]) for i in range(6)]
        hazard = text
        for low, high, at, caption, word in HAZARDS:
            within = (low is None or bounds[low] <= conc) and (high is None or conc < bounds[high])
            if within and f[f"conclbl({at})"] == caption:
                hazard = "  Hazard LvL: " + word
        yield ["Circle", TEXTS, 7, px, py, z, 1]
        for i, line in enumerate(["  Distance : " + model.plain(away) + " m", text, hazard]):
            yield ["Text", TEXTS, 7, px, py - 15 * i, z, 10, line]


def differences(wanted, drawn, where):
    if isinstance(wanted, dict):
        for key, value in wanted.items():
            if key == "area":  # of a polygon
                if abs(value - drawn[key]) > 1e-5 * value:
                    yield f"{where}.area: {drawn[key]}, expected {value}"
            else:
                yield from differences(value, drawn[key], f"{where}.{key}")
    elif isinstance(wanted, (list, tuple)):
        if len(wanted) != len(drawn):
            yield f"{where}: {len(drawn)} of {len(wanted)}"
        for i, (a, b) in enumerate(zip(wanted, drawn)):
            yield from differences(a, b, f"{where}[{i}]")
    elif differs(wanted, drawn):
        yield f"{where}: {drawn}, expected {wanted}"


def main(cli, examples):
    faults = 0
    for name, wind, scale in (("chlorine-hose", 0, 1), ("ammonia-puff", 225, 0.25), ("lpg-pool", 90, 1000)):
        figures, entities = ask(cli, f"{examples}/{name}.script", wind, scale)
        wanted = list(expected(Run(figures), wind, scale))
        for fault in differences(wanted, entities, name):
            print(fault)
            faults += 1
        areas = [model.fmt(e[3]["area"] * 0.0001, 3) for e in entities if e[0] == "Spline"]
        shown = [figures[f"isoparea({i})"] for i in range(5, -1, -1)]
        if [a for a in shown if a in areas] != areas:
            print(f"{name}: areas {shown}, expected {areas}")
            faults += 1
        print(f"{name}: {len(entities)} entities, {len(areas)} outlines")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
