#!/usr/bin/env python3
"""The lists that the plots draw, against a second way to them: every primitive of three whole runs.

    python3 plots_test.py NOLDARZ-CLI EXAMPLES

Runs the example scripts to their plots through the script front, and works out grid, axes, outlines,
circles, labels and the source mark from the figures of the run with the formulas of
reference_model.py.  A number that differs by more than 1e-9, a missing or a spare primitive fails.
"""
import json
import subprocess
import sys
from math import cos, floor, isclose, log, sin, sqrt

import reference_model as model

COLOURS = ["#800000", "#ff0000", "#0000ff", "#00ffff", "#00ff00", "#008000"]
GRID, WHITE, INK = "#e0e0e0", "#ffffff", "windowText"
W, H = 11385 * 25.4 / 1440, 8445 * 25.4 / 1440
INPUTS = "scnrotypetxt QntyRelstxt molwttxt vapordnstytxt stblclscbo htreltxt enddisttxt".split()
LEVELS = [f"{name}({i})" for name in ("constn", "bgnpt", "endpt") for i in range(6)]
SHARES = [f"Givnwnd({i})" for i in range(8)]
STATES = "htRelease htSimul windAtHeight ftlLimitStored injLimitStored ftlLimitRaw injLimitRaw".split()


def ask(cli, script):
    """The figures of the run, and the drawings of the four fits."""
    lines = [f'set {field} 12.5' if i else f'set {field} 0' for i, field in enumerate(SHARES)]
    lines += [f"show {field}" for field in INPUTS + LEVELS + SHARES] + ["state " + " ".join(STATES)]
    lines += [f"show conclbl({i}) caption" for i in range(6)]
    lines += ['choose prntprv "Plot Hazard Zones"', "check zardzone.PlotFtlyInjryLmt", "slide zardzone.NorthSld 20",
              "click zardzone.DwgOnPic"]
    for fit in ("Ftvert", "fthiznt", "isoelvat", "FtvertB"):
        lines += [f"click Drwfrm.{fit}", "drawing Drwfrm.Drw1"]
    with open(script, encoding="utf-8") as file:
        text = file.read() + "\n" + "\n".join(lines) + "\n"
    out = subprocess.run([cli, "script", "-"], input=text, capture_output=True, text=True, check=True).stdout
    figures, drawings = {}, []
    for line in map(json.loads, out.splitlines()):
        if "field" in line:
            figures[line["field"].split(".")[1]] = str(line.get("text", line.get("caption")))
        if "state" in line:
            figures[line["state"]] = line["value"]
        if "drawing" in line:
            drawings.append(line["primitives"])
    return figures, drawings


class Run:
    def __init__(self, figures):
        self.f = figures
        self.numbers = {name: model.number(figures[name]) for name in INPUTS[1:4] + LEVELS[:6] + SHARES if name in figures}

    def sigmas(self, x):
        cls = self.f["stblclscbo"]
        return model.sigma_y(cls, x), model.sigma_z(cls, x, self.numbers["vapordnstytxt"], model.sigma_z_base(cls, x))

    def concentration(self, x):
        f, n = self.f, self.numbers
        return model.concentration(f["scnrotypetxt"], n["QntyRelstxt"], n["molwttxt"], 300, f["htRelease"],
                                   f["htSimul"], f["windAtHeight"], *self.sigmas(x))

    def half_width(self, x, level, elevated):
        conc, (sy, sz) = self.concentration(x), self.sigmas(x)
        wanted = model.rounded(self.numbers[f"constn({level})"])
        width = (sz if elevated else sy) * sqrt(2 * log(conc / wanted)) if wanted < conc else 0
        return model.rounded(width)

    def outline(self, level, scale, source, angle, elevated, lift):
        begin, end = (model.number(model.fmt(model.number(self.f[f"{side}({level})"]))) for side in ("bgnpt", "endpt"))
        step = 0.1 if end < 100 else 1.0
        list_, pen, first, tip = [], None, None, None

        def axis(x, without):
            w = 0 if x == without else self.half_width(x, level, elevated) / scale
            d = sqrt(0.00001 ** 2 + w + (x / scale) ** 2)
            return source[0] + d * sin(angle), source[1] - d * cos(angle), w

        x = begin
        while x <= end:
            ax, ay, w = tip = axis(x, begin)
            if pen is None:
                pen = first = (ax, ay)
            to = (ax - w * cos(angle), ay - w * sin(angle))
            list_.append(["Line", *pen, *to, COLOURS[level]])
            pen, x = to, x + step
        list_ += [["PSet", tip[0], tip[1] + lift, WHITE], ["Print", " " + model.fmt(end) + " m"]]
        x = end
        while x >= begin:
            ax, ay, w = axis(x, end)
            to = (ax + w * cos(angle), ay + w * sin(angle))
            list_.append(["Line", *pen, *to, COLOURS[level]])
            pen, x = to, x - step
        return list_ + [["Line", *pen, *first, COLOURS[level]]]

    def isopleths(self, scale, source, degrees, elevated):
        angle, list_, lift = degrees * 0.01745, [], -3.5
        for level in range(5, -1, -1):
            begin = self.f[f"bgnpt({level})"]
            if begin not in ("0", "N.A.", ">" + self.f["enddisttxt"]):
                list_ += self.outline(level, scale, source, angle, elevated, lift)
                lift = 0.5 if lift == -3.5 else -3.5
            list_.append(["DrawWidth", 1])
            if not elevated:
                list_.append(["Circle", *source, model.number(self.f[f"endpt({level})"]) / scale, COLOURS[level]])
            list_.append(["DrawWidth", 2])
        if elevated:
            return list_
        list_.append(["FontBold", True])
        limits = [("ftl", "#ff80ff", "Fatality Limit "), ("inj", "#c0c000", "Injury Limit ")]
        for name, colour, _ in limits:
            list_.append(["Circle", *source, self.f[name + "LimitStored"] / scale, colour])
        b = (degrees - 10) * 0.01745
        for name, _, label in limits:
            stored, raw = self.f[name + "LimitStored"], self.f[name + "LimitRaw"]
            list_ += [["PSet", source[0] + stored / scale * sin(b), source[1] - raw / scale * cos(b) - 3.5, WHITE],
                      ["Print", label + model.fmt(stored) + " m"]]
        return list_ + [["FontBold", False]]

    def rose(self, scale, source, north):
        list_ = []
        half = [0.0] * 17
        for k in range(8):
            half[2 * k] = self.numbers[f"Givnwnd({k})"] * 0.5
        for k in range(8):
            half[2 * k + 1] = 0.5 * half[2 * k] + 0.5 * (half[2 * k + 2] if k < 7 else half[0])
        total = sum(self.numbers[name] for name in SHARES)
        share = [(value + value / total) / 100 for value in half[:16]]
        for side in ("endpt", "bgnpt"):
            for level in range(6):
                text = self.f[f"{side}({level})"]
                if text in ("N.A.", "0"):
                    continue
                E = model.number(text)
                R = [0.2 * E if share[j] == 0 and side == "endpt" else E - E * share[j] for j in range(16)]
                r, step, t, labelled = (R[15] + R[0]) / 2, (R[0] - R[15]) / 2 / 45, 0.0, side == "bgnpt"
                def point():
                    turn = (t + north + 90) * 0.0175
                    return cos(turn) * r / scale + source[0], sin(turn) * r / scale + source[1]
                pen = point()
                for j in range(16):
                    after = (R[(j + 1) % 16] - R[j]) / 2 / 45
                    u = 0.0
                    while u < 22.5:
                        r += step if u <= 11.25 else after
                        to = point()
                        list_.append(["Line", *pen, *to, COLOURS[level]])
                        if not labelled:
                            list_ += [["PSet", *to, WHITE],
                                      ["Print", f"{self.caption(level)} - {text} m"]]
                            labelled = True
                        pen, t, u = to, t + 0.25, u + 0.25
                    step = after
        return list_

    def caption(self, level):
        return f"{self.f[f'conclbl({level})']} Dist. : {self.f[f'endpt({level})']} m"


def paper(source, across_first):
    list_, g = [["DrawWidth", 1]], W
    while g >= 0:
        list_.append(["Line", g, 0, g, H, GRID])
        g -= 10
    for i in range(int(H // 10) + 1):
        list_.append(["Line", W, 10 * i, 0, 10 * i, GRID])
    axes = [["Line", W, source[1], 0, source[1], INK], ["Line", source[0], 0, source[0], W, INK]]
    return list_ + (axes if across_first else axes[::-1])


def source_mark(source, text, bold=True):
    mark = [["PSet", *source, WHITE], ["Circle", *source, 0.5, INK], ["Print", text]]
    return mark[:2] + [["FontBold", True], mark[2], ["FontBold", False]] if bold else mark


def ground():
    colour = "#ff80ff"
    rows = [["Line", 0, H - (10 - g), W, H - (10 - g), colour] for g in range(11)]
    return [["DrawWidth", 1]] + rows + [["Line", x, H - 10, x, H, colour] for x in range(floor(W) + 1)]


def expected(run):
    reach = model.number(run.f["endpt(5)"])
    height = model.number(run.f["htreltxt"])
    plain = "  Source point"
    up, across, round_ = reach / (H - 20), reach / (W - 20), reach / (H / 2 - 10)
    raised = (10, H - (height / across + 10))
    middle = (W / 2, H / 2)
    for scale, source, degrees, elevated in ((up, (W / 2, H - 10), 0, False), (across, (10, H / 2), 90, False),
                                             (across, raised, 90, True)):
        mark = f"  Source point \n            at : {run.f['htreltxt']} m" if elevated else plain
        yield (paper(source, degrees == 0) + (ground() if elevated else []) + [["DrawWidth", 2]]
               + run.isopleths(scale, source, degrees, elevated) + source_mark(source, mark)
               + ([["PSet", 0, H - 14, WHITE], ["Print", "  Gr.Lvl."]] if elevated else []))
    yield (paper(middle, True) + [["DrawWidth", 2]] + run.rose(round_, middle, 20)
           + source_mark(middle, plain, bold=False))


def differs(a, b):
    if isinstance(a, str) or isinstance(b, str) or isinstance(a, bool):
        return a != b
    return not isclose(a, b, rel_tol=1e-9, abs_tol=1e-9)


def main(cli, examples):
    faults = 0
    for name in ("chlorine-hose", "ammonia-puff", "lpg-pool"):
        figures, drawings = ask(cli, f"{examples}/{name}.script")
        count = 0
        for fit, (wanted, drawn) in enumerate(zip(expected(Run(figures)), drawings)):
            while drawn and drawn[0][0] in ("Cls", "DrawWidth", "FontTransparent") and drawn[0] != wanted[0]:
                drawn = drawn[1:]
            count += len(drawn)
            if len(wanted) != len(drawn):
                print(f"{name}, fit {fit}: {len(drawn)} primitives, {len(wanted)} expected")
                faults += 1
            for i, (w, d) in enumerate(zip(wanted, drawn)):
                if len(w) != len(d) or any(differs(x, y) for x, y in zip(w, d)):
                    print(f"{name}, fit {fit}, primitive {i}: {d}, expected {w}")
                    faults += 1
                    break
        print(f"{name}: {count} primitives of {len(drawings)} plots")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
