#!/usr/bin/env python3
"""Reference model of the dispersion engine: figures worked out outside the program.

A plain second implementation of the model (wind at height, dispersion coefficients, concentration
formulas) and of the two-press Compute command (sweeps, level passes, isopleth geometry, close-out
as far as it touches the fields of the view; no database), with the limit search for fatality and
injury and the report table in the runs of limits.json.  It shares no code with the program and
serves only to check it.

    python3 reference_model.py [FOLDER]    # standard library only, writes the files, by default next to itself

  coefficients.csv    sigma-z base, sigma-z, sigma-y by class, vapour density and distance
  wind.csv            wind at height by class, terrain, height of release and wind
  concentrations.csv  the concentration formula, and the MGC candidate with S = H / 1.4142
  runs.json           whole runs: inputs, levels, replies; after each press the texts of the fields,
                      the names of the enabled fields, and the boxes shown (questions included, line
                      break "\\n"; a press of more than 20 boxes gives their count and the distinct
                      texts in order of first appearance)
  walks.csv           the crosswind walk at one distance: inputs, sum of the doses, fatality and
                      injury figure
  limits.json         whole runs to the limits: inputs, constants, levels, replies; after two presses
                      with the probit option on the labels, the raw limits, the distance of the walk
                      and the two limits of the run row (null when the row is not written); the labels
                      with the option off; the 120 cells of the report table of the finished run

Numbers in the csv files are written with repr(), in full precision.  A statement that fails leaves
its target as it was.  Python's own exceptions stand for the failures: ValueError (a logarithm or
root without value), NotANumber, ZeroDivisionError, OverflowError.
"""
import csv
import json
import re
import sys
from decimal import ROUND_HALF_UP, Decimal
from functools import lru_cache
from math import atan, exp, isfinite, log, pow as power, sqrt
from pathlib import Path

# ---------------------------------------------------------------- texts and numbers

class NotANumber(ValueError):
    pass

FAILED = (ValueError, ZeroDivisionError, OverflowError)
NUMBER = re.compile(r"[ \t]*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?[ \t]*", re.ASCII)

def failure_code(failure):
    for kind, code in ((NotANumber, 13), (ZeroDivisionError, 11), (OverflowError, 6)):
        if isinstance(failure, kind):
            return code
    return 5

@lru_cache(maxsize=None)
def number(text):
    if not NUMBER.fullmatch(text):
        raise NotANumber(text)
    return finite(float(text))

def finite(value):
    if not isfinite(value):
        raise OverflowError(value)
    return value

QUANTUM = {places: Decimal(1).scaleb(-places) for places in (0, 2, 3, 4, 5)}

def fmt(value, places=2):
    """The number with fixed decimals: its 15-digit decimal form, rounded half away from zero."""
    rounded = Decimal("%.15g" % value).quantize(QUANTUM[places], ROUND_HALF_UP)
    return format(abs(rounded) if rounded == 0 else rounded, "f")

def rounded(value, places=2):
    return float(fmt(value, places))

def plain(value):
    """The number with at most 15 significant digits and no trailing zeros."""
    text = format(Decimal("%.15g" % value), "f")
    return "0" if text == "-0" else text

# ---------------------------------------------------------------- the model

CLASSES = ("A", "AB", "B", "BC", "C", "CD", "D", "DE", "E", "EF", "F", "Custom")
TERRAINS = {"Urban": (8.35538, 0.39675), "Semi-Urban": (12.19, 0.34456), "Sub-Urban": (17.35, 0.29237),
            "Rural": (25.8, 0.234335), "Level": (37.8087, 0.1763)}
BREAKPOINTS = {"A": 289.614, "Custom": 289.614, "AB": 303.121, "BC": 424.504, "CD": 368.652,
               "D": 368.653, "E": 366.919, "EF": 410.429, "F": 588.084}

def wind_at_height(cls, terrain, height, wind, wind_text):
    if height <= 10:
        a, b = TERRAINS.get(terrain, TERRAINS["Urban"])
        return (wind * a * power(height, b)) / (a * power(10, b))
    w1 = wind * power(height / 10, 0.2 / 1.8)
    w2 = wind * power(height / 10, 0.25 / 1.75)
    w3 = wind * power(height / 10, 0.5 / 1.5)
    if cls in ("A", "AB", "B"):
        return w1
    if cls in ("C", "CD", "D"):
        return w2
    if cls in ("E", "EF", "F"):
        return w3
    if cls == "BC":
        return (w2 + w1) / 2
    if cls == "DE":
        return (w3 + w2) / 2
    return number(wind_text) if cls == "Custom" else wind

def PA(x): return 0.087 * power(x, 1.1)
def PB(x): return 0.135 * power(x, 0.95)
def PC(x): return 0.112 * power(x, 0.91)
def PD(x): return 0.093 * power(x, 0.85)
def PE(x): return 0.082 * power(x, 0.82)
def PF(x): return 0.057 * power(x, 0.8)
def lg(x): return log(x) / log(10)
def QA(x): return power(10, 0.181 * power(lg(x), 2) + 0.902 * lg(x) - 1.67)
def QB(x): return power(10, 0.0018 * power(lg(x), 2) + 1.09 * lg(x) - 1.25)
def QD(x): return power(10, 1.08 * lg(x) - 1.22 - 0.061 * power(lg(x), 2))
def QE(x): return power(10, 1.04 * lg(x) - 1.19 - 0.07 * power(lg(x), 2))
def QF(x): return power(10, 1.37 * lg(x) - 1.91 - 0.119 * power(lg(x), 2))

# per class: the form below the breakpoint, the form at or above it; two names stand for their mean
BASE_FORMS = {
    "A": ((PA,), (QA,)), "Custom": ((PA,), (QA,)), "AB": ((PA, PB), (QB, QA)), "B": ((PB,), (PB,)),
    "BC": ((PC, PB), (QB, PC)), "C": ((PC,), (PC,)), "CD": ((PC, PD), (QD, PC)), "D": ((PD,), (QD,)),
    "DE": ((QE, QD), (QE, QD)), "E": ((PE,), (QE,)), "EF": ((PE, PF), (QF, QE)), "F": ((PF,), (QF,))}
LIGHT_FORMS = {  # factor and exponent of sigma-z for a vapour density below 1
    "A": ((0.13, 1.01),), "Custom": ((0.13, 1.01),), "AB": ((0.166, 0.905), (0.13, 1.01)),
    "B": ((0.166, 0.905),), "BC": ((0.166, 0.905), (0.132, 0.874)), "C": ((0.132, 0.874),),
    "CD": ((0.123, 0.789), (0.132, 0.874)), "D": ((0.123, 0.789),),
    "DE": ((0.123, 0.789), (0.11, 0.756)), "E": ((0.11, 0.756),),
    "EF": ((0.097, 0.684), (0.11, 0.756)), "F": ((0.097, 0.684),)}
LATERAL_FORMS = {
    "A": ((0.493, 0.8),), "Custom": ((0.493, 0.8),), "AB": ((0.493, 0.8), (0.337, 0.88)),
    "B": ((0.337, 0.88),), "BC": ((0.195, 0.9), (0.337, 0.88)), "C": ((0.195, 0.9),),
    "CD": ((0.195, 0.9), (0.128, 0.9)), "D": ((0.128, 0.9),), "DE": ((0.091, 0.91), (0.128, 0.9)),
    "E": ((0.091, 0.91),), "EF": ((0.091, 0.91), (0.067, 0.9)), "F": ((0.067, 0.9),)}

def mean(values):
    return values[0] if len(values) == 1 else (values[0] + values[1]) / 2

def of_powers(forms, cls, x, kept):
    return mean([c * power(x, e) for c, e in forms[cls]]) if cls in forms else kept

def sigma_z_base(cls, x, kept=None):
    if cls not in BASE_FORMS:
        return kept
    below, above = BASE_FORMS[cls]
    return mean([form(x) for form in (below if x < BREAKPOINTS.get(cls, 0) else above)])

def sigma_z(cls, x, density, base, kept=None):
    if density < 1:
        return of_powers(LIGHT_FORMS, cls, x, kept)
    if 1 < density <= 1.5 and x <= 60:
        return (x * 0.01 + 0.4) * base
    if density > 1.5 and x <= 80:
        return (x * 0.01 + 0.2) * base
    return base

def sigma_y(cls, x, kept=None):
    return of_powers(LATERAL_FORMS, cls, x, kept)

def concentration(kind, Q, M, T, H, z, u, sy, sz):
    R = exp(-0.5 * power((z + H) / sz, 2)) + exp(-0.5 * power((H - z) / sz, 2))
    Y = exp(-0.5 * power(0.00001 / sy, 2))
    K = (T / M) * 0.08205 * 1000
    if kind == "PUFF":
        return finite(K * R * Y * (Q * 1000) / (power(6.28318, 1.5) * power(sy, 2) * sz))
    return finite(K * R * Y * (Q * 1000) / (6.28318 * sy * sz * u))

def ground_concentration(kind, Q, M, Tc, H, u, sy, S):
    if kind == "PUFF":
        return finite((Q * 1000) / (power(6.28318, 1.5) * power(sy, 2) * S) * exp(-0.5 * power(H / S, 2))
                      * 0.08205 * ((Tc + 273) / M) * 1000)
    return finite(((Q + Q) * 1000) / (power(H, 2) * (u * 8.55118538)) * (S / sy)
                  * 0.08205 * ((Tc + 273) / M) * 1000)

@lru_cache(maxsize=None)
def exposure(path):
    return rounded(path / 90, 4)

def walk(C, M, half_edge, a_ftl, b_ftl, a_inj, b_inj):
    """The walk out of the cloud at one distance: sum of the doses, fatality and injury figure."""
    dose = ftl = inj = dose_sum = pct_ftl = pct_inj = 0.0
    if C > 0:
        c_ftl, c_inj = finite(power(C, b_ftl)), finite(power(C, b_inj))
    path = 0.0
    while path <= half_edge:
        # Each pass adds what the pass before it gave: the last one is never added.
        dose_sum, pct_ftl, pct_inj = dose_sum + dose, pct_ftl + ftl, pct_inj + inj
        if path == 0:
            path = 0.00001
        elif path == 1.00001:
            path = 1.0
        minutes = exposure(path)
        dose = (M * C / 24.75) * (minutes * 0.001) / 60
        ftl = inj = 0.0
        if C > 0 and minutes > 0:
            ftl = max(a_ftl + 0.43429 * log(c_ftl * minutes), 0.0)
            inj = max(a_inj + 0.43429 * log(c_inj * minutes), 0.0)
        path += 1.0
    return dose_sum, percent(pct_ftl), percent(pct_inj)

def percent(total):
    return 100.0 if total > 100 else 0.0 if total < 0.9 else total

# ---------------------------------------------------------------- the Compute command

KINDS = ("PLUME", "POOL", "PUFF")
RESULTS = ("mgctxt", "distconctxt", "constn1", "maxdistconctxt", "tmestbltxt", "expmass")
LEVEL_FIELDS = ("bgnpt", "endpt", "isoplngt", "isopwdth", "distmaxisop", "isopang", "isoparea")
CAPTIONS = ["UEL:", "LEL:", "TEEL3/IDLH:", "TEEL2:", "TEEL1:", "TEEL0:"]
CONSTNS = ["constn(%d)" % i for i in range(6)]
SWITCHED = ["comput", "prntprv", "getconclvl"] + CONSTNS + ["htreltxt", "wndveltxt"]
LEL_SET = ("LEL", "LEL:", "LEL.", "Lel", "Lel:", "Lel.")

FARTHEST = 1e6  # m, where a march ends that would never end

SWEEP_TRAP = "Please Run this application as an administrator."
BEGIN_TRAP = "2. Please Run this program as an administrator/Anti-virus trust.\nMsg. No.%d"
BAD_LEVELS = ("1. Concentration should be >0 and in descending order.\n"
              "2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) ")
NO_MGC_BEYOND_CONC = "Can not compute MGC (Maximum Ground Concentration) beyond %s ppm"
NO_MGC_BEYOND_DIST = "Can not compute MGC (Maximum Ground Concentration in ppm) beyond %s m"
ASK_BEYOND = ("Concentration in ppm  > %s m \nWish to simulate beyond %s m \n"
              " NOTE : You can Reset concentration %s\nEnter concentration > %s")
RESET_LEVEL = "Reset concentration %s\nNote:Enter concentration < %s"
STABLE_PLUME = "Time for stabilization concentration zones of dispersion (Secs)"
STABLE_PUFF = "Time for Puff Dispersion to end (Secs)"

def attempt(statement):
    """The trap of a press: a failing statement has no effect, and the press goes on behind it."""
    try:
        statement()
    except FAILED:
        pass

class Engine:
    """The fields of the view (self.f, and a list of six for each level field) and the run state."""

    def __init__(self, inputs, captions, replies):
        self.f = dict(inputs, wndvel="", nodfdwndlbl="", tmestbllbl="",
                      comput="&Compute maximum concentration", **{name: "0" for name in RESULTS})
        for name in LEVEL_FIELDS:
            setattr(self, name, ["0"] * 6)
        self.constn, self.conclbl = ["5"] * 6, list(captions)
        self.enabled = set(SWITCHED) - {"prntprv"}
        self.replies, self.boxes = list(replies), []
        for name in """endDist htRelease htSimul distSweep distX distAt sweepFrom sweepTo sweepStep
                sigmaZBase sigmaZ sigmaY sigmaZBaseAt sigmaZAt sigmaYAt sigmaZAtMax windInput
                windAtHeight concGround mgc mgcDist concAxis concAxisEnd concAt concPeak maxIsopConc
                maxConcDist levelConcBgn levelConcEnd levelConcAt bgnIdx endIdx widthIdx bgnLevel
                endLevel sweepLevel widthLevel levelIdx bgnPoint endPoint halfWidthPrev halfWidthLast
                halfWidthCur halfWidthMax maxWidthDist mgcDone maxConcDone mgcPass firstPass""".split():
            setattr(self, name, 0)

    def num(self, name):
        return number(self.f[name])

    def level(self, i):
        return rounded(number(self.constn[i]))

    def past(self):
        return ">" + plain(self.endDist)

    def mark(self, i, text):
        for name in LEVEL_FIELDS:
            getattr(self, name)[i] = text

    def ask(self, text):
        self.boxes.append(text)
        return bool(self.replies) and self.replies.pop(0) == "yes"

    def conc(self, sy, sz, kelvin, kept):
        kind = self.f["scnrotypetxt"]
        if kind not in KINDS:
            return kept
        return concentration(kind, self.num("QntyRelstxt"), self.num("molwttxt"), kelvin(),
                             self.htRelease, self.htSimul, self.windAtHeight, sy, sz)

    def of_release(self):
        return self.num("tempStore") + 273

    def at_300(self):
        return 300

    # ---- the model at distX (the sweep) and at distAt (the width pass)

    def calcSigmaZBase(self):
        self.sigmaZBase = sigma_z_base(self.f["stblclscbo"], self.distX, self.sigmaZBase)
        self.windInput = self.num("wndveltxt")

    def calcSigmaZ(self):
        self.sigmaZ = sigma_z(self.f["stblclscbo"], self.distX, self.num("vapordnstytxt"), self.sigmaZBase, self.sigmaZ)

    def calcSigmaY(self):
        self.sigmaY = sigma_y(self.f["stblclscbo"], self.distX, self.sigmaY)

    def calcSigmaYAt(self):
        self.sigmaYAt = sigma_y(self.f["stblclscbo"], self.distAt, self.sigmaYAt)

    def calcSigmaZBaseAt(self):
        self.sigmaZBaseAt = sigma_z_base(self.f["stblclscbo"], self.distAt, self.sigmaZBaseAt)
        self.windInput = self.num("wndveltxt")

    def calcSigmaZAt(self):
        self.sigmaZAt = sigma_z(self.f["stblclscbo"], self.distAt, self.num("vapordnstytxt"), self.sigmaZBaseAt,
                                self.sigmaZAt)

    def at_maximum_distance(self):
        try:
            return self.num("enddisttxt") == self.distAt
        except FAILED:
            return False

    def calcWindAtHeight(self):
        if self.mgcPass == 1:
            self.windAtHeight = wind_at_height(self.f["stblclscbo"], self.f["roghwndoptcbo"], self.htRelease,
                                               self.windInput, self.f["wndveltxt"])
        self.f["wndvel"] = plain(self.windAtHeight)

    # ---- one sweep along the axis

    def runSweep(self):
        limit, step = self.sweepTo, self.sweepStep
        steps = (self.roundDistance, self.calcSigmaZBase, self.calcWindAtHeight, self.calcSigmaZ, self.calcSigmaY,
                 self.findPeak, self.testBeginPoint, self.testEndPoint, self.findMgc)
        self.distSweep = self.sweepFrom
        while self.distSweep <= limit:
            for call in steps:
                try:
                    call()
                except FAILED:
                    self.boxes.append(SWEEP_TRAP)
            self.distSweep = self.distSweep + step
        if self.distX >= 10000 or self.f["mgctxt"] == "0":
            if self.mgcDone == 1:
                self.f["distconctxt"] = fmt(self.distX - 1)
                self.boxes.append(NO_MGC_BEYOND_CONC % plain(self.mgc))
            else:
                self.boxes.append(NO_MGC_BEYOND_DIST % plain(self.distX))

    def roundDistance(self):
        self.distX = rounded(self.distSweep)

    def findMgc(self):
        if self.mgcDone == 0:
            self.calcConcGround()
            self.takeMgc()

    def calcConcGround(self):
        if self.f["scnrotypetxt"] in KINDS:
            self.concGround = ground_concentration(
                self.f["scnrotypetxt"], self.num("QntyRelstxt"), self.num("molwttxt"), self.num("tempStore"),
                self.htRelease, self.windAtHeight, self.sigmaY, self.sigmaZAtMax)

    def takeMgc(self):
        if self.sigmaZ < self.sigmaZAtMax:
            return
        self.mgc, self.mgcDist = min(self.concGround, 1000000.0), self.distX
        self.f["mgctxt"] = fmt(self.mgc)
        self.f["distconctxt"] = fmt(self.mgcDist - 1)
        self.mgcDone = 1
        if self.maxConcDone == 1:
            self.distSweep = self.sweepTo

    def takePeak(self):
        self.maxIsopConc, self.maxConcDist = self.concAxis, self.distX
        self.f["constn1"] = fmt(self.maxIsopConc - self.maxIsopConc * 0.05)
        self.f["maxdistconctxt"] = fmt(self.maxConcDist)
        self.maxConcDone = 1

    def findPeak(self):
        if self.maxConcDone != 0:
            return
        self.concAxis = self.conc(self.sigmaY, self.sigmaZ, self.of_release, self.concAxis)
        if self.f["scnrotypetxt"] in KINDS:
            self.f["tmestbllbl"] = STABLE_PUFF if self.f["scnrotypetxt"] == "PUFF" else STABLE_PLUME
        if self.concAxis > 1000000:
            self.concAxis = 1000000.0
            self.takePeak()
        if not self.concPeak > self.concAxis:
            self.concPeak = self.concAxis
            return
        self.takePeak()
        if self.mgcDone == 1:
            self.distSweep = self.sweepTo

    def testBeginPoint(self):
        if self.bgnIdx >= 6:
            return
        i = self.bgnLevel = self.bgnIdx
        try:
            self.levelConcBgn = self.level(i)
        except FAILED as failure:
            self.boxes.append(BEGIN_TRAP % failure_code(failure))
        try:
            self.concAxis = self.conc(self.sigmaY, self.sigmaZ, self.at_300, self.concAxis)
        except FAILED as failure:
            self.boxes.append(BEGIN_TRAP % failure_code(failure))
        if self.constn[i] == "0" or self.num("constn1") < self.levelConcBgn:
            self.mark(i, "N.A.")
            self.bgnIdx += 1
        elif not self.levelConcBgn > self.concAxis:
            self.bgnPoint = self.distX
            self.bgnpt[i] = fmt(self.bgnPoint)
            self.bgnIdx += 1
            self.runSweep()

    def testEndPoint(self):
        if self.endIdx >= 6:
            return
        i = self.endLevel = self.endIdx
        self.levelConcEnd = self.level(i)
        self.concAxisEnd = self.conc(self.sigmaY, self.sigmaZ, self.at_300, self.concAxisEnd)
        if not self.levelConcEnd > self.concAxisEnd:
            return
        self.endPoint = self.distX
        self.endpt[i] = fmt(self.endPoint)
        try:
            self.isoplngt[i] = fmt(number(self.endpt[i]) - number(self.bgnpt[i]))
        except FAILED:
            pass
        self.distSweep = self.sweepTo
        self.endIdx += 1

    # ---- a press

    def comput_Click(self):
        for target, name in (("endDist", "enddisttxt"), ("htRelease", "htreltxt"), ("htSimul", "htsmul")):
            attempt(lambda: setattr(self, target, self.num(name)))
        self.sweepLevel = self.widthLevel = 0
        if self.mgcDone == 0 and self.maxConcDone == 0:
            self.firstPress()
        elif self.mgcDone == 1 and self.maxConcDone == 1:
            if not self.runLevelPasses():
                return
        self.closeRun()

    def firstPress(self):
        self.enabled -= {"htreltxt", "wndveltxt"}
        self.f["comput"] = "&Compute maximum concentration"
        self.sigmaZAtMax = self.htRelease / 1.4142
        self.mgcPass, self.bgnIdx, self.endIdx, self.widthIdx, self.firstPass = 1, 6, 6, 6, 1
        self.sweepFrom, self.sweepTo, self.sweepStep = 2.0, self.endDist, 0.5
        self.runSweep()
        self.mgcPass = 0
        self.f["comput"] = "&Compute at given concentration"
        self.f["nodfdwndlbl"] = "Modified wind velocity - " + fmt(self.windAtHeight) + " m/s"

    def badLevel(self, i):
        try:
            a, b = number(self.constn[i]), number(self.constn[i + 1])
        except FAILED:
            return True
        try:
            m = self.num("constn1")
        except FAILED:
            return False
        return not a < m or a < b or not a > 0

    def runLevelPasses(self):
        self.enabled -= {"getconclvl", *CONSTNS}
        for i in range(5):
            if self.badLevel(i):
                self.boxes.append(BAD_LEVELS)
                self.mark(i + 1, "Input Err.")
                self.enabled |= set(CONSTNS)
                self.enabled.discard("prntprv")
                return False
        # pass 1: begin points
        self.bgnIdx, self.sweepStep = 0, 0.5 if self.num("maxdistconctxt") > 30 else 0.01
        self.sweepFrom, self.sweepTo = 2.0, self.num("maxdistconctxt")
        self.runSweep()
        # pass 2: end points on a coarse step
        self.endIdx, self.sweepStep, self.sweepTo = 0, 5.0, self.endDist
        for self.sweepLevel in range(6):
            attempt(lambda: setattr(self, "sweepFrom", number(self.bgnpt[self.sweepLevel])))
            self.runSweep()
        # pass 3: end points refined
        self.bgnIdx, self.endIdx = 6, 0
        for self.sweepLevel in range(6):
            self.sweepStep = 0.01
            bgn, end = self.bgnpt[self.sweepLevel], self.endpt[self.sweepLevel]
            if bgn in ("N.A.", self.past(), "0") or end in ("0", self.past()):
                continue
            attempt(lambda: setattr(self, "sweepFrom", number(bgn) if number(end) <= 10 else number(end) - 10))
            attempt(lambda: setattr(self, "sweepTo", number(end) + 10))
            self.runSweep()
        # pass 4: widths
        self.endIdx, self.widthIdx, self.distAt = 6, 0, self.num("maxdistconctxt")
        self.halfWidthPrev = self.halfWidthLast = 0.0
        for self.widthLevel in range(6):
            i, self.sweepStep = self.widthLevel, 1.0
            attempt(lambda: setattr(self, "levelConcAt", self.level(i)))
            if self.bgnpt[i] in ("N.A.", self.past(), "0") or self.endpt[i] == "0":
                self.enabled.discard("prntprv")
            else:
                attempt(self.findMaxWidth)
        # results of the levels
        self.levelIdx = 0
        while self.levelIdx <= 5:
            i = self.levelIdx
            if self.endpt[i] not in ("0", self.past()):
                attempt(lambda: self.setAngle(i))
                attempt(lambda: self.setArea(i))
                self.enabled.add("prntprv")
            else:
                self.mark(i, self.past())
                self.f["expmass"] = "0"
                dist = plain(self.endDist)
                if not self.ask(ASK_BEYOND % (dist, dist, self.conclbl[i], self.constn[i])):
                    self.enabled.add(CONSTNS[i])
                    self.enabled -= {"prntprv", "comput"}
                    break
                self.f["enddisttxt"] = plain(self.endDist + 10000)
                self.mark(i, "0")
                self.f["expmass"] = "0"
                self.comput_Click()
                self.enabled.discard("prntprv")
            self.levelIdx += 1  # as an inner press may have left it, plus 1
        self.firstPass = 0
        return True

    # ---- geometry of a level

    def findMaxWidth(self):
        if self.widthIdx > 5:
            return
        while True:
            for step in (self.calcSigmaYAt, self.calcSigmaZBaseAt, self.calcSigmaZAt):
                attempt(step)
            self.halfWidthLast = self.halfWidthPrev
            # A failure here would repeat for ever: it ends the march.
            self.concAt = self.conc(self.sigmaYAt, self.sigmaZAt, self.at_300, self.concAt)
            if self.concAt > self.levelConcAt:
                self.halfWidthCur = sqrt(2 * log(self.concAt / self.levelConcAt)) * self.sigmaYAt
            if not self.halfWidthLast < self.halfWidthCur:
                self.halfWidthMax, self.maxWidthDist = self.halfWidthCur, self.distAt
                break
            self.halfWidthPrev = self.halfWidthCur
            self.distAt = self.distAt + self.sweepStep
            if self.at_maximum_distance():
                break
            if self.distAt >= FARTHEST:
                for field in (self.isopwdth, self.distmaxisop, self.isopang, self.isoparea):
                    field[self.widthLevel] = ">" + plain(FARTHEST)
                return
        self.distmaxisop[self.widthLevel] = fmt(self.maxWidthDist)
        self.isopwdth[self.widthLevel] = fmt(self.halfWidthMax + self.halfWidthMax)

    def setAngle(self, i):
        self.isopang[i] = fmt(atan((number(self.isopwdth[i]) * 0.5) / number(self.distmaxisop[i])) * 57.29)

    def setArea(self, i):
        area = (number(self.isopwdth[i]) / 2) * 3.14159 * (number(self.isoplngt[i]) / 2) * 0.0001
        area = rounded(area, 5)
        self.isoparea[i] = fmt(area, 5) if area < 0.001 else fmt(area, 3)

    def calcFlammableMass(self):
        def T(i):
            return (number(self.isoplngt[i]) / 2) * (number(self.isopwdth[i]) / 4)

        def D(i):
            c = number(self.constn[i])
            return (1.2928 * self.num("vapordnstytxt") * c) / 1000000 + (1 - c / 1000000) * 1.2928

        def M0():
            return 4.1877 * T(0) * D(0)

        label = self.conclbl
        if label[2] in LEL_SET:
            V = 4.1877 * T(1) + T(2) - T(0)
            value = (V * D(1) + V * D(2)) - M0()
        elif label[0] in LEL_SET:
            V = 4.1877 * T(0)
            value = V * D(0)
        elif (label[0] in ("TEET3/IDLH", "TEET3/IDLH:", "TEET3/IDLH.")
              or label[2] in ("Teel/Idlh", "Teel/Idlh:", "Teel/Idlh.")):
            V = 4.1877 * T(0) + T(1)
            value = V * D(1) + V * D(0)
        elif label[1] in ("LEL", "LEL:", "LEL.", "Lel.") or label[0] in ("Lel", "Lel:"):
            V = 4.1877 * T(1) - T(0)
            value = V * D(1) - M0()
        else:
            self.f["expmass"] = "0"
            return
        self.f["expmass"] = fmt(0.002204634 * value, 3)

    # ---- the close-out, as far as it touches the fields of the view

    def closeRun(self):
        if self.firstPass == 0:
            attempt(self.calcFlammableMass)
            t = 0.0
            try:
                t = number(self.endpt[5]) / self.windAtHeight
            except FAILED:
                pass
            self.f["tmestbltxt"] = fmt(t if t <= 60 else t / 60 if t <= 3600 else t / 3600)
        try:
            has_mass = self.num("expmass") > 0
        except FAILED:
            has_mass = False
        if not has_mass:
            self.f["expmass"] = "Mass = 0"
        for i in range(6):
            if {self.bgnpt[i], self.endpt[i]} & {"N.A.", self.past(), "0"}:
                self.enabled.discard("prntprv")
            else:
                self.enabled.add("prntprv")
        for i in range(6):
            if self.isoplngt[i] < "0" and self.isoplngt[i] != self.past():
                self.boxes.append(RESET_LEVEL % (self.conclbl[i], self.constn[i]))
                self.enabled.discard("prntprv")
                self.enabled.add(CONSTNS[i])
                break
        try:
            if number(self.isoplngt[2]) > 0:
                self.f["comput"] = "Results at given concentration"
        except FAILED:
            pass
        if "prntprv" in self.enabled:
            self.f["comput"] = "Concentration distances computed."

    def snapshot(self):
        names = ("mgctxt", "distconctxt", "constn1", "maxdistconctxt", "wndvel", "nodfdwndlbl",
                 "tmestbllbl", "tmestbltxt", "expmass", "comput", "enddisttxt")
        shown = {name: self.f[name] for name in names}
        shown.update({"%s(%d)" % (name, i): getattr(self, name)[i] for name in LEVEL_FIELDS for i in range(6)})
        shown["enabled"] = [name for name in SWITCHED if name in self.enabled]
        return shown

class LimitEngine(Engine):
    """The engine with the limits for fatality and injury, the probit option on."""

    def __init__(self, inputs, captions, replies):
        super().__init__(inputs, captions, replies)
        self.f.update(maxdstprtxt="0", FatatyDistDsplyLbl="", InjuryDistDsplyLbl="")
        for name in """maxDistPrbt prbtStep concPrbt concRow doseSum doseRow pctFtl pctInj ftlLimitRaw injLimitRaw
                ftlLimit injLimit halfWidthAt halfWidthArea rowFrom""".split():
            setattr(self, name, 0)
        self.prbtTable, self.runRow = ["0"] * 127, None

    def comput_Click(self):
        self.ftlLimit = self.injLimit = 0
        super().comput_Click()

    def closeRun(self):
        super().closeRun()  # nothing in it reads what the limit search leaves
        self.prbtTable[:120] = ["0"] * 120
        try:
            self.f["maxdstprtxt"] = plain(number(self.endpt[5]))
        except FAILED:
            pass
        attempt(lambda: self.prbtRun(plotMode=True))
        self.ftlLimit = self.ftlLimitRaw - 1 if self.ftlLimitRaw > 2 else self.ftlLimitRaw
        self.injLimit = self.injLimitRaw - 1 if self.injLimitRaw > 2 else self.injLimitRaw
        self.f["FatatyDistDsplyLbl"] = "Fatality dist. limit: " + plain(self.ftlLimit) + " m"
        self.f["InjuryDistDsplyLbl"] = "Injury dist. limit : " + plain(self.injLimit) + " m"
        try:
            if number(self.isoplngt[2]) > 0:
                self.runRow = [self.ftlLimit if self.ftlLimitRaw else 0.05, self.injLimit if self.injLimitRaw else 0.05]
        except FAILED:
            pass

    def lethalLabels(self):
        """The labels when the probit option is turned off."""
        ends = ["TO BE COMPUTED"] * 2
        try:
            if number(self.endpt[2]) > 0 and number(self.endpt[5]) > 0:
                ends = [self.endpt[2] + " m", self.endpt[4] + " m"]
        except FAILED:
            pass
        return ["Fatality dist. limit : " + ends[0], "Injury dist. limit : " + ends[1]]

    # ---- the walk downwind

    def calcAt(self):
        self.calcSigmaYAt()
        self.calcSigmaZBaseAt()
        self.calcSigmaZAt()

    def concOnAxis(self, kept):
        kind = self.f["scnrotypetxt"]
        if kind not in KINDS:
            return kept
        sy, sz, H, z = self.sigmaYAt, self.sigmaZAt, self.htRelease, self.htSimul
        V = exp(-0.5 * power((z + H) / sz, 2)) + exp(-0.5 * power((H - z) / sz, 2))
        L = exp(-0.5 * power(0.00001 / sy, 2))
        K = (300 / self.num("molwttxt")) * 0.08205 * 1000
        if kind == "PUFF":
            S = (self.num("QntyRelstxt") * 1000) / (sz * power(sy, 2) * power(6.28318, 1.5))
        else:
            S = (self.num("QntyRelstxt") * 1000) / (self.windAtHeight * sz * sy * 6.28318)
        return finite(K * V * L * S)

    def prbtConcAt(self):
        self.concPrbt = self.concOnAxis(self.concPrbt)

    def prbtExposure(self):
        self.concPrbt = rounded(self.concPrbt, 4)
        self.doseSum, self.pctFtl, self.pctInj = walk(
            self.concPrbt, self.num("molwttxt"), number(self.isopwdth[4]) / 2,
            *map(self.num, ("avalftl", "nvalftl", "avalinj", "nvalinj")))

    def prbtHalfWidth(self):
        attempt(self.calcAt)
        attempt(lambda: setattr(self, "concAt", self.concOnAxis(self.concAt)))
        # Outside the level there is no root: the half width of the strip before it stays.
        attempt(lambda: setattr(self, "halfWidthAt", sqrt(2 * log(self.concAt / self.levelConcAt)) * self.sigmaYAt))
        self.halfWidthArea = self.halfWidthAt

    def prbtRun(self, plotMode):
        self.maxDistPrbt = self.num("maxdstprtxt")
        self.levelConcAt = self.level(5)
        self.prbtStep = rounded(self.maxDistPrbt / 20)
        self.distAt = cursor = rounded(number(self.bgnpt[0]) + 0.1)
        self.rowFrom, halfWidthBefore, row = 0.0, 0.0, 0
        if self.isoplngt[4] in ("N.A.", ">" + self.f["enddisttxt"]):
            return
        if plotMode:
            self.prbtStep = 1.0 if self.maxDistPrbt <= 1000 else rounded(self.maxDistPrbt / 1000, 0)
        while self.distAt <= self.maxDistPrbt:
            self.calcAt()
            self.prbtConcAt()
            self.concRow = rounded(self.concPrbt)
            if self.concRow > 1000000:
                self.concRow = 950000.0
            self.prbtExposure()
            if not plotMode:
                distRow, areaHa, bandTo = self.distAt, 0.0, self.rowFrom + self.prbtStep
                while cursor <= bandTo:
                    self.distAt = cursor
                    if number(self.endpt[5]) > cursor:
                        self.prbtHalfWidth()
                        areaHa += (self.halfWidthArea + halfWidthBefore) * 0.0001
                    halfWidthBefore = self.halfWidthArea
                    cursor += 1.0
                cursor = self.rowFrom = bandTo
                self.distAt = distRow
                if self.pctFtl + self.pctInj > 100:
                    self.pctInj = 100 - self.pctFtl
                self.doseRow = rounded(self.doseSum, 4)
                self.prbtTable[6 * row:6 * row + 6] = [
                    plain(rounded(self.distAt)), plain(rounded(self.pctFtl)), plain(rounded(self.pctInj)),
                    "<0.001" if areaHa < 0.001 or self.concRow == 0 else fmt(areaHa, 3),
                    plain(self.concRow), plain(self.doseRow)]
                row += 1
            self.distAt += self.prbtStep
            if self.pctFtl > 0:
                self.ftlLimitRaw = self.distAt + self.prbtStep
            if self.pctInj > 0:
                self.injLimitRaw = self.distAt + self.prbtStep

# ---------------------------------------------------------------- the data files

INPUTS = ("scnrotypetxt stblclscbo roghwndoptcbo htreltxt htsmul QntyRelstxt molwttxt vapordnstytxt"
          " tempStore wndveltxt enddisttxt").split()
CONSTANTS = "avalftl nvalftl avalinj nvalinj".split()
# name | inputs in the order above | levels: six texts, or six shares of constn1 behind "*" | options
RUNS = """
ground A      | PLUME A Level 1 1 5 17.03 0.6 -34 2 10000          | * .8 .4 .1 .02 .001 .0001
ground AB     | POOL AB Urban 1 0 8 29 1 27 3 10000                | * .9 .5 .2 .1 .03 .01
ground B      | PUFF B Semi-Urban 1 1 50 44.1 1.52 60 5 10000      | * .6 .3 .1 .03 .01 .001
ground BC     | PLUME BC Sub-Urban 1.5 0 3 70.9 2.5 200 5 10000    | * .5 .3 .2 .1 .05 .02
ground C      | PLUME C Rural 0.8 0.8 10 34.08 1.2 27 5.5 10000    | * .7 .2 .05 .01 .002 .0005
ground CD     | POOL CD Level 1 0 2 58.1 2 60 5 10000              | * .6 .5 .4 .3 .2 .1
ground D      | PLUME D Level 1 1 5 44.1 1.52 27 6 10000           | * .5 .2 .05 .01 .003 .001
ground DE     | PUFF DE Urban 1.2 0.5 100 29 1 -34 5.5 10000       | * .8 .4 .2 .1 .05 .02
ground E      | POOL E Semi-Urban 1 1 4 16.04 0.6 200 5 10000      | * .4 .2 .05 .02 .01 .004
ground EF     | PLUME EF Sub-Urban 1 0 1.5 64.06 2.2 27 5 10000    | * .9 .7 .4 .2 .1 .04
ground F      | PUFF F Rural 1 1 20 17.03 0.99 60 3 10000          | * .3 .1 .03 .01 .003 .001
ground Custom | PLUME Custom Level 1 0.5 6 28.01 1.01 27 4.2 10000 | * .8 .6 .3 .1 .04 .02
tall A        | PLUME A Urban 100 0 400 17.03 0.6 27 2 10000       | * .9 .7 .5 .3 .2 .1
tall AB       | PUFF AB Level 60 0 9000 29 1 60 3 10000            | * .8 .6 .4 .3 .2 .1
tall B        | POOL B Rural 50 10 300 44.1 1.52 -34 5 10000       | * .6 .5 .4 .3 .2 .1
tall BC       | PLUME BC Level 40 0 200 70.9 2.5 27 5 10000        | * .6 .5 .4 .3 .2 .1
tall C        | PLUME C Urban 30 30 150 34.08 1.2 200 5.5 10000    | * .6 .1 .05 .02 .01 .005
tall CD       | PUFF CD Sub-Urban 40 0 5000 58.1 1.5 27 5 10000    | * .9 .8 .7 .6 .5 .4
tall D        | PLUME D Semi-Urban 35 1.5 100 28.01 0.8 60 6 10000 | * .9 .8 .7 .6 .5 .4
tall DE       | POOL DE Level 30 0 80 29 1 27 5.5 20000            | * .9 .7 .5 .3 .2 .1
tall E        | PLUME E Level 30 0 90 64.06 2.2 27 5 30000         | * .9 .8 .6 .5 .4 .3
tall EF       | PUFF EF Urban 30 5 4000 17.03 0.6 -34 5 20000      | * .9 .8 .7 .6 .5 .4
tall F        | PLUME F Rural 30 0 60 44.1 1.3 27 3 40000          | * .9 .8 .7 .6 .5 .4
tall Custom   | PLUME Custom Rural 50 0 300 29 1 27 4.2 10000      | * .9 .7 .5 .3 .2 .1
height 10     | PLUME D Urban 10 0 20 29 1 27 6 10000              | * .9 .7 .5 .3 .2 .1
height 10.01  | PLUME D Urban 10.01 0 20 29 1 27 6 10000           | * .9 .7 .5 .3 .2 .1
unknown terrain | POOL C Desert 2 0 5 29 1 27 4 10000              | * .9 .7 .5 .3 .2 .1
fast stabilization | PLUME A Level 1 1 0.05 29 1 27 5 10000        | * .9 .7 .5 .3 .2 .1
slow stabilization | PLUME D Level 1 1 10 29 1 27 0.5 30000        | * .5 .1 .01 .003 .001 .0005 | presses=3
peak at 30    | PLUME D Level 2.37 0 5 29 1 27 6 10000                | * .9 .7 .5 .3 .2 .1
peak at 30.5  | PLUME D Level 2.41 0 5 29 1 27 6 10000             | * .9 .7 .5 .3 .2 .1
capped before the MGC | PLUME F Level 1 0 400 17.03 1 27 1 30000   | * .9 .5 .2 .1 .05 .02
capped puff   | PUFF D Level 1 1 500 29 1 27 6 10000               | * .9 .5 .1 .01 .001 .0001
capped after the MGC | PLUME D Level 1 5 20000 17.03 1 27 1 12000  | * .9 .5 .3 .2 .1 .07
capped MGC    | PLUME F Level 0.5 0 600 17.03 1 60 1 6000          | * .9 .7 .5 .4 .3 .2
simulated above the release | PLUME C Level 5 20 50 29 1 27 3 10000 | * .9 .7 .5 .3 .2 .1
level 5 not applicable | PLUME C Level 1 1 5 44.1 1.52 27 4 10000  | 20000 5000 1000 500 100 0 | presses=3
level 5 not applicable, far | PLUME C Level 1 0 5 44.1 1.52 27 4 20000 | 20000 5000 1000 500 100 0
level 5 rounds to nothing | POOL C Level 1 0 5 44.1 1.52 27 4 2000 | 20000 5000 1000 500 100 0.004 | replies=no
equal neighbours | PLUME B Level 1 0 5 29 1 27 4 10000             | 100 100 50 50 10 0
equal neighbours, tall | PLUME B Level 40 0 500 29 1 27 4 10000    | * .8 .8 .5 .5 .2 .2 | presses=3
refused equal to constn1 | PLUME D Level 2 0 5 29 1 27 6 10000     | * 1 .5 .4 .3 .2 .1 | presses=3
refused ascending | PLUME D Level 2 0 5 29 1 27 6 10000            | 500 400 300 350 200 100
refused zero  | PLUME D Level 2 0 5 29 1 27 6 10000                | 100 50 0 0 0 0
refused last  | PUFF D Level 2 0 5 29 1 27 6 10000                 | 10 8 6 4 2 3
third decimal | PLUME D Level 2 0 5 29 1 27 6 10000                | 500.005 400.125 300.0049 200.995 100.115 50.555
beyond, No    | PLUME D Level 1 1 5 44.1 1.52 27 6 1000            | * .1 .01 .001 .0001 .00003 .00001 | replies=no
beyond, No at the last | PLUME D Level 1 0 5 44.1 1.52 27 6 2000   | * .9 .5 .1 .05 .02 .0005
beyond, Yes   | PLUME D Level 1 1 5 44.1 1.52 27 6 1000            | * .1 .01 .001 .0001 .00005 .00003 | replies=yes; presses=3
beyond, Yes Yes | POOL F Level 1 1 30 29 1 27 3 1500               | 20000 5000 2000 1000 100 60 | replies=yes yes
beyond, Yes No No | PLUME F Level 1 1 30 29 1 27 3 1500            | 20000 5000 2000 30 10 1 | replies=yes no
beyond, Yes No Yes | PLUME F Level 1 1 30 29 1 27 3 1500           | 20000 5000 2000 50 40 30 | replies=yes no yes
beyond, Yes with level 5 not applicable | PUFF E Level 1 0 50 29 1 27 3 500 | * .5 .1 .01 .001 .0001 0 | replies=yes
negative length, No | PLUME D Level 50 0 500 29 1 27 6 3000        | * .95 .9 .5 .45 .4 .35 | replies=no
negative length, Yes | PLUME D Level 50 0 500 29 1 27 6 3000       | * .95 .9 .5 .45 .4 .35 | replies=yes; presses=3
negative length, level 5 not applicable | PLUME C Level 50 0 500 29 1 27 6 1200 | * .95 .9 .5 .45 .4 0
negative length, level 5 not applicable, Yes | POOL C Level 50 0 500 29 1 27 6 1200 | * .95 .9 .5 .45 .4 0 | replies=yes yes
negative length, Yes No | PLUME F Level 30 0 60 44.1 1.3 27 3 3500  | * .9 .8 .7 .05 .04 .03 | replies=yes no
negative length, all held | PLUME B Level 80 0 500 29 1 27 6 600   | * .8 .6 .4 .3 .2 .1
mass, case 1  | PLUME D Level 1 1 20 44.1 1.52 27 6 10000          | * .5 .2 .1 .01 .003 .001 | captions=TEEL3/IDLH:,UEL:,LEL:,TEEL2:,TEEL1:,TEEL0:
mass, case 1 typed | POOL C Level 1 1 20 16.04 0.6 -34 6 10000     | * .5 .05 .01 .005 .003 .001 | captions=UEL:,x,Lel.,TEEL2:,TEEL1:,TEEL0:
mass, case 2  | PLUME D Level 1 1 20 44.1 1.52 27 6 10000          | * .5 .2 .1 .01 .003 .001 | captions=LEL:,UEL:,IDLH:,TEEL2:,TEEL1:,TEEL0:
mass, case 3  | PLUME D Level 1 1 20 44.1 1.52 27 6 10000          | * .5 .2 .1 .01 .003 .001 | captions=TEET3/IDLH:,LEL:,UEL:,TEEL2:,TEEL1:,TEEL0:
mass, case 3 by level 2 | PUFF D Level 1 1 80 44.1 1.52 27 6 10000 | * .5 .2 .1 .01 .003 .001 | captions=Conc. 0,LEL:,Teel/Idlh,TEEL2:,TEEL1:,TEEL0:
mass, case 4 large | PLUME F Level 1 1 20 44.1 1.52 27 3 10000     | * .5 .2 .1 .05 .03 .02
mass, case 4 typed | PLUME D Level 1 1 20 44.1 1.52 27 6 10000     | * .9 .1 .05 .01 .003 .001 | captions=Conc. 0,Lel.,IDLH,c,d,e
mass, case 5  | PLUME D Level 1 1 20 44.1 1.52 27 6 10000          | * .5 .2 .1 .01 .003 .001 | captions=Conc. 0,Conc. 1,TEEL3/IDLH:,TEEL2:,TEEL1:,TEEL0:
hot, level not reached | PLUME D Level 1 0 5 29 1 200 6 10000      | * .8 .5 .3 .2 .1 .05 | presses=3
hot, level not reached, DE | POOL DE Level 1 0 5 29 1.2 200 6 10000 | * .8 .5 .3 .2 .1 .05
cold, levels  | PLUME E Level 2 0 5 17.03 0.6 -34 3 10000          | * .99 .8 .6 .4 .2 .1
no MGC in reach | PLUME E Level 30 30 20 29 1 27 3 500             | 50 40 30 20 10 5
no MGC within 10000 | PLUME F Level 100 100 20 29 1 27 3 10000     | 50 40 30 20 10 5
neither in reach | PLUME D Level 60 0 100 29 1 27 6 200            | 50 40 30 20 10 5 | presses=3
MGC without peak | PLUME C Level 5 20 50 29 1 27 3 120             | 50 40 30 20 10 5
late MGC      | PLUME E Level 40 40 50 29 1 27 3 20000             | * .5 .1 .05 .03 .02 .01
ends past 10000 | PLUME F Level 48 0 50 29 1 27 3 30000            | * .9 .8 .7 .6 .5 .4
peak past 10000 | PLUME F Level 90 0 50 29 1 27 3 90000            | * .95 .9 .85 .8 .75 .7
class not known | PLUME Z Level 1 0 5 29 1 27 3 50                 | 50 40 30 20 10 5
type not known | LIQUID D Level 1 0 5 29 1 27 6 10000              | 50 40 30 20 10 5
type not known, short | LIQUID D Level 1 0 5 29 1 27 6 100         | 50 40 30 20 10 5
no number in enddisttxt | PLUME D Level 1 0 5 29 1 27 6 far        | 50 40 30 20 10 5
no number in wndveltxt | PLUME D Level 1 0 5 29 1 27 6,0 60        | 50 40 30 20 10 5
no number in wndveltxt, puff | PUFF D Level 1 0 5 29 1 27 N.A. 60  | * .9 .8 .7 .6 .5 .4
no number in wndveltxt, Custom | PUFF Custom Level 12 0 500 29 1 27 calm 150 | * .9 .8 .7 .6 .5 .4
no number in level 5 | PUFF D Level 1 0 5 29 1 27 6 300            | 1000 500 100 50 20 N.A. | replies=no
numbers written otherwise | PLUME D Level 1.0 .0 5e0 +29 1. 2.7E1 6.00 2500.5 | 5e3 1000.0 500. 100 50 20
"""

# molecular weight and constants: some chemicals, the fallback of the start and of the fields, humid ammonia
PROBITS = (
    (17.03, -15.85, 2, -8.48, 2), (70.9, -14.33, 2.3, -5.84, 2.3), (98.92, -0.78, 0.9, 2.54, 0.9),
    (46, -18.6, 3.7, -4.96, 3.7), (57.05, -1.23, 0.7, 1.35, 0.7), (29, -10, 2, -5, 2), (44.1, -10, 2, -6, 2),
    (17.03, -16.25, 1.95, -8.69, 1.95))
# half width | concentrations, each with its row of the constants
WALKS = """
0       | 0 5, 5e6 2
0.5     | 48.2 0, 5e6 2
0.99    | 1e6 1, 5e6 2
1       | 731.0625 3, 5e6 2
1.00001 | 0.0001 4, 5e6 2
1.5     | 98765.4321 6, 1e6 7, 5e6 2
2       | 0 2, 1000 5, 1200 2, 4000 5, 98765.4321 0, 1e6 6, 5e6 3
2.5     | 0.0573 4, 4000 5, 9500 5, 5e6 0, 5e6 2
3       | 0.0001 2, 4000 5, 5000 5, 48.2 4, 731.0625 1, 1e6 1, 5e6 7
10      | 0 3, 1.2346 4, 48.2 3, 731.0625 2, 4000 6, 98765.4321 1, 1e6 7, 5e6 5
57.3    | 0.0001 4, 0.0573 2, 0.6 2, 48.2 2, 731.0625 1, 4000 0, 12345.6789 6, 1e6 5
250     | 0 0, 0.0001 2, 1.2346 3, 4.31 2, 48.2 4, 731.0625 5, 4000 7, 98765.4321 3, 5e6 1
2000    | 0.0001 3, 0.0573 4, 1.2346 5, 12.5 3, 48.2 1, 731.0625 6, 4000 0, 98765.4321 7, 5e6 2
"""

# name | inputs and levels as in the runs above | constants of the two probits, A and B | replies
LIMITS = """
hurt, none dead           | PLUME D Level 1 1 5 17.03 0.6 -34 6 10000           | * .5 .2 .05 .01 .003 .001            | -15.85 2.0 -8.48 2.0
heavy pool, F             | POOL F Rural 1 1.5 2 70.9 2.49 -34 2 10000          | * .5 .2 .05 .02 .01 .005             | -14.33 2.3 -5.84 2.3
heavy puff, D             | PUFF D Urban 2 1 500 70.9 2.49 27 4 10000           | * .6 .3 .1 .03 .01 .002              | -14.33 2.3 -5.84 2.3
dead and hurt, B          | PLUME B Semi-Urban 1 0 0.5 98.92 3.4 8 3 10000      | * .5 .2 .05 .01 .003 .001            | -0.78 0.9 2.54 0.9
up to 1000, F             | PLUME F Level 1 1 2 98.92 3.4 8 3 10000             | * .1 .02 .004 .001 .0005 .0002       | -0.78 0.9 2.54 0.9
far puff, F               | PUFF F Level 1 1 400 57.05 1.97 39 2 20000          | * .4 .1 .01 .001 .0002 .00005        | -1.23 0.7 1.35 0.7
far, E, above 5 m         | PLUME E Sub-Urban 5 1.5 3 33.99 1.17 27 3 10000     | * .6 .3 .1 .03 .01 .003              | -2.61 1.0 1.08 1.0
pool, EF                  | POOL EF Sub-Urban 1 0 20 56.06 1.94 27 3 10000      | * .5 .2 .1 .02 .004 .003             | -4.12 1.0 -0.43 1.0
pool, C                   | POOL C Level 1 0 0.2 46 1.6 21 4 10000              | * .6 .3 .1 .03 .01 .003              | -18.6 3.7 -4.96 3.7
light, A                  | PLUME A Urban 3 0 10 28.01 0.97 60 2 10000          | * .6 .3 .1 .03 .01 .003              | -7.36 1.0 -3.69 1.0
fallback of the fields    | PLUME D Level 1 1 5 44.1 1.52 27 6 10000            | * .5 .2 .05 .01 .003 .001            | -10.0 2.0 -6.0 2.0
fallback of the start, DE | PUFF DE Rural 1 0 100 29 1 27 5.5 10000             | * .5 .2 .05 .01 .003 .001            | -10.0 2.0 -5.0 2.0
humid, BC                 | PLUME BC Level 1 0 40 17.03 0.6 27 5 10000          | * .5 .2 .05 .01 .003 .001            | -16.25 1.95 -8.69 1.95
Custom                    | PLUME Custom Level 1 0.5 6 28.01 1.01 27 4.2 10000  | * .8 .6 .3 .1 .04 .02                | -7.36 1.0 -3.69 1.0
late cloud, AB            | POOL AB Urban 1 0 8 56.06 1.94 27 3 10000           | * .9 .5 .2 .1 .03 .01                | -4.12 1.0 -0.43 1.0
late cloud, D             | PLUME D Semi-Urban 35 1.5 100 27.03 0.93 60 6 10000 | * .9 .8 .7 .6 .5 .4                  | -9.77 2.4 -0.91 2.4
late cloud, B             | POOL B Rural 50 10 300 44.1 1.52 -34 5 10000        | * .6 .5 .4 .3 .2 .1                  | -10.0 2.0 -6.0 2.0
late cloud, F             | PLUME F Rural 30 0 60 44.1 1.3 27 3 40000           | * .9 .8 .7 .6 .5 .4                  | -8.43 1.5 -2.9 1.5
late puff, CD             | PUFF CD Sub-Urban 40 0 5000 27.03 0.93 27 5 10000   | * .9 .8 .7 .6 .5 .4                  | -9.77 2.4 -0.91 2.4
neither dead nor hurt     | PLUME E Level 5 1.5 3 64.06 2.2 27 3 10000          | * .6 .3 .1 .03 .01 .003              | -19.19 2.4 -10.34 2.4
neither, narrow           | PLUME C Level 1 1 0.001 64.06 2.2 27 4 10000        | * .5 .2 .1 .08 .05 .02               | -0.78 0.9 2.54 0.9
level 5 not applicable    | PLUME C Level 1 1 5 44.1 1.52 27 4 10000            | 20000 5000 1000 500 100 0            | -10.0 2.0 -6.0 2.0
beyond, No at level 2     | PLUME D Level 1 1 5 44.1 1.52 27 6 1000             | * .1 .01 .00005 .00004 .00003 .00001 | -10.0 2.0 -6.0 2.0 | no
beyond, No at level 4     | PLUME D Level 1 1 5 44.1 1.52 27 6 1000             | * .1 .01 .005 .002 .00005 .00001     | -10.0 2.0 -6.0 2.0 | no
beyond, No at the last    | POOL D Level 1 0 5 44.1 1.52 27 6 2000              | * .9 .5 .1 .05 .02 .0005             | -10.0 2.0 -6.0 2.0 | no
beyond, Yes               | PLUME D Level 1 1 5 44.1 1.52 27 6 200              | * .1 .05 .02 .01 .005 .001           | -10.0 2.0 -6.0 2.0 | yes
beyond, Yes No            | PLUME F Level 1 1 30 29 1 27 3 1500                 | 20000 5000 2000 30 10 1              | -10.0 2.0 -6.0 2.0 | yes no
"""

def play(line):
    name, inputs, levels, *options = [part.strip() for part in line.split(" | ")]
    options = dict(option.split("=") for option in "; ".join(options).split("; ") if option)
    captions = options["captions"].split(",") if "captions" in options else CAPTIONS
    replies = options.get("replies", "").split()
    fields = dict(zip(INPUTS, inputs.split(), strict=True))
    engine = Engine(fields, captions, replies)
    run = {"name": name, "set": fields, "levels": None, "replies": replies}
    if captions != CAPTIONS:
        run["conclbl"] = captions
    presses = ("first", "second", "third")[:int(options.get("presses", 2))]
    if len(presses) > 2:
        run["presses"] = len(presses)
    for press in presses:
        assert "comput" in engine.enabled, name
        engine.boxes = []
        engine.comput_Click()
        run[press] = engine.snapshot()
        run[press + "Boxes"] = engine.boxes
        if len(engine.boxes) > 20:
            run[press + "BoxCount"] = len(engine.boxes)
            run[press + "Boxes"] = list(dict.fromkeys(engine.boxes))
        if press == "first":  # the levels are set between the presses
            run["levels"] = engine.constn = level_texts(engine, levels.split())
            assert len(engine.constn) == len(captions) == 6, name
    return run

def level_texts(engine, levels):
    if levels[0] != "*":
        return levels
    top = engine.num("constn1")
    return [plain(top * float(s)) if s == "1" else plain(float("%.3g" % (top * float(s)))) for s in levels[1:]]

def play_limits(line):
    name, inputs, levels, constants, *replies = [part.strip() for part in line.split(" | ")]
    replies = replies[0].split() if replies else []
    fields = dict(zip(INPUTS + CONSTANTS, inputs.split() + constants.split(), strict=True))
    engine = LimitEngine(fields, CAPTIONS, replies)
    engine.comput_Click()
    engine.constn = level_texts(engine, levels.split())
    engine.comput_Click()
    run = {"name": name, "set": fields, "levels": engine.constn, "replies": replies}
    run.update({key: engine.f[key] for key in ("FatatyDistDsplyLbl", "InjuryDistDsplyLbl")})
    run.update(ftlLimitRaw=engine.ftlLimitRaw, injLimitRaw=engine.injLimitRaw, maxdstprtxt=engine.f["maxdstprtxt"],
               row=engine.runRow, lethal=engine.lethalLabels())
    attempt(lambda: engine.prbtRun(plotMode=False))
    assert len(engine.prbtTable) == 127 and len(engine.constn) == 6, name
    run["table"] = engine.prbtTable[:120]
    return run

def write_json(name, runs):
    (FOLDER / name).write_text(
        "[\n" + ",\n".join(json.dumps(run, separators=(",", ":")) for run in runs) + "\n]\n", encoding="ascii")

def coefficient_rows():
    for cls in CLASSES:
        at = BREAKPOINTS.get(cls)
        around = [at - 0.001, at, at + 0.001] if at else []
        for density in (0.6, 0.99, 1, 1.2, 1.5, 1.6, 2.5):
            for x in (2, 10, 59.99, 60, 60.01, 79.99, 80, 80.01, 100, *around, 1000, 10000, 50000):
                base = sigma_z_base(cls, x)
                yield cls, repr(density), repr(x), repr(base), repr(sigma_z(cls, x, density, base)), repr(sigma_y(cls, x))

def wind_rows():
    for cls in CLASSES + ("Z",):
        for terrain in list(TERRAINS) + ["Desert"]:
            for height in (0.1, 1, 9.99, 10, 10.01, 50, 100):
                for wind in (0.5, 3):
                    yield cls, terrain, repr(height), repr(wind), repr(wind_at_height(cls, terrain, height, wind, repr(wind)))

def concentration_rows():
    gases = ((5, 17.03, -34), (0.02, 44.1, 27), (800, 70.9, 60), (12.5, 29, 200), (3000, 16.04, 25))
    places = ((1, 1, 2, 1.7, 0.5), (1, 0, 6, 12.5, 5.25), (30, 0, 7.2, 80, 21.3), (100, 1.5, 3, 0.17, 0.05))
    for i, kind in enumerate(KINDS):
        for j, (Q, M, Tc) in enumerate(gases):
            for k, (H, z, u, sy, sz) in enumerate(places):
                T = 300 if (i + j + k) % 2 else Tc + 273
                yield (kind, *map(repr, (Q, M, Tc, H, z, u, sy, sz, T, concentration(kind, Q, M, T, H, z, u, sy, sz), sy,
                                         ground_concentration(kind, Q, M, Tc, H, u, sy, H / 1.4142))))

def walk_rows():
    for line in WALKS.strip().splitlines():
        half_edge, cases = line.split("|")
        for case in cases.split(","):
            C, row = case.split()
            molwt, *constants = PROBITS[int(row)]
            inputs = (float(C), molwt, float(half_edge), *constants)
            yield tuple(map(repr, inputs + walk(*inputs)))

FOLDER = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).parent

def write_csv(name, header, rows):
    with open(FOLDER / name, "w", newline="", encoding="ascii") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(header.split(","))
        writer.writerows(rows)

if __name__ == "__main__":
    write_csv("coefficients.csv", "class,density,x,sigmaZBase,sigmaZ,sigmaY", coefficient_rows())
    write_csv("wind.csv", "class,terrain,height,wind,windAtHeight", wind_rows())
    write_csv("concentrations.csv", "type,Q,M,Tc,H,z,u,sy,sz,T,conc,sigmaYGround,concGround", concentration_rows())
    write_json("runs.json", [play(line) for line in RUNS.strip().splitlines()])
    write_csv("walks.csv", "C,M,halfEdge,AFtl,BFtl,AInj,BInj,doseSum,pctFtl,pctInj", walk_rows())
    write_json("limits.json", [play_limits(line) for line in LIMITS.strip().splitlines()])
