#!/usr/bin/env python3
"""Zones in drawings of another program: nothing of theirs is harmed, and that program reads what was added.

    python3 drawings_test.py NOLDARZ-CLI EXAMPLES

Needs ezdxf.  Writes a drawing of each format with blocks, nested inserts, hatches, dimensions, extended data
and foreign letters, maps zones into it, and looks at every tag: all old ones are there in their order, what is
new lies in the table of layers and at the end of the entities, and only the next free handle has changed.  Then
ezdxf opens the result, audits it, and its geometry is compared with what the script front tells.
"""
import json
import subprocess
import sys
import tempfile
from math import isclose

import ezdxf

FORMATS = "R12 R2000 R2004 R2007 R2010 R2013 R2018".split()


def plant(format_, file):
    doc = ezdxf.new(format_, setup=True)
    doc.header["$INSUNITS"] = 6
    space = doc.modelspace()
    doc.layers.add("Tanks", color=1)
    doc.layers.add("Rohrbrücke", color=140)
    doc.appids.add("PLANT")
    valve = doc.blocks.new("VALVE")
    valve.add_lwpolyline([(0, 0), (2, 1), (2, 0), (0, 1)], close=True) if format_ != "R12" else \
        valve.add_polyline2d([(0, 0), (2, 1), (2, 0), (0, 1)], close=True)
    valve.add_attdef("TAG", (0, -1), dxfattribs={"height": 0.5})
    skid = doc.blocks.new("SKID")
    skid.add_blockref("VALVE", (5, 5), dxfattribs={"rotation": 30})
    skid.add_circle((0, 0), 3, dxfattribs={"color": 0})
    for i in range(20):
        insert = space.add_blockref("SKID", (30 * i, 10), dxfattribs={"layer": "Tanks", "xscale": 1.5, "yscale": 0.5})
        insert.set_xdata("PLANT", [(1000, f"skid {i}"), (1040, 1.25 * i)])
        space.add_line((30 * i, 0), (30 * i + 20, 0), dxfattribs={"layer": "Rohrbrücke"})
    space.add_text("Behälter 1", dxfattribs={"insert": (5, 40), "height": 3})
    space.add_point((1, 2, 3))
    space.add_linear_dim(base=(0, -10), p1=(0, 0), p2=(30, 0)).render()
    if format_ != "R12":
        space.add_mtext("one\\Ptwo {\\C1;red}", dxfattribs={"insert": (5, 60), "char_height": 2})
        space.add_ellipse((50, 50), (10, 2), 0.4, 0, 4)
        space.add_spline([(0, 80), (20, 95), (40, 70), (60, 90)])
        space.add_lwpolyline([(0, 0, 0.5), (10, 0, -0.3), (10, 10, 0)], format="xyb")
        hatch = space.add_hatch(color=3)
        hatch.paths.add_polyline_path([(70, 0), (80, 0, 0.4), (80, 10)], is_closed=True)
        hatch.paths.add_edge_path().add_arc((75, 5), 2, 0, 360)
    if format_ in ("R2004", "R2007", "R2010", "R2013", "R2018"):
        doc.layers.get("Tanks").rgb = (200, 60, 20)
    doc.layout("Layout1").add_text("paper", dxfattribs={"insert": (0, 0)})
    doc.saveas(file)


def tags(file):
    with open(file, "rb") as stream:
        lines = stream.read().split(b"\n")
    return [(lines[i].strip(), lines[i + 1]) for i in range(0, len(lines) - 1, 2)]


def spliced(old, new):
    """The tags that were added; fails when an old one is missing, moved or changed, but for the next free handle."""
    added, i, seed = [], 0, False
    for tag in new:
        if i < len(old) and tag == old[i]:
            seed = tag[1].strip() == b"$HANDSEED"
            i += 1
        elif seed:
            seed = False
            i += 1
        else:
            assert old[i][1].strip() in (b"ENDTAB", b"ENDSEC"), f"tag {i}: {old[i]}"
            added.append(tag)
    assert i == len(old), f"tag {i} of {len(old)} is gone: {old[i]}"
    return added


def script(cli, examples, drawing, folder):
    """What the script front tells of the same mapping."""
    with open(f"{examples}/ammonia-puff.script", encoding="utf-8") as file:
        text = file.read() + f"""
choose prntprv "Plot Hazard Zones"
slide zardzone.wndsld1 200
enter zardzone.sclenotxt 0.5
answer {drawing}
click zardzone.opndwg2
answer 120,-40
click zardzone.getcoords
drawing zardzone.cad
"""
    out = subprocess.run([cli, "script", "-"], input=text, capture_output=True, text=True, check=True,
                         env={"HOME": folder, "PATH": "/usr/bin:/bin"}).stdout
    return [json.loads(line)["entities"] for line in out.splitlines() if line.startswith('{"drawing"')][-1]


def audit(file):
    """Errors and repairs: the drawings of the writer may have some."""
    auditor = ezdxf.readfile(file).audit()
    return [entry.code for entry in auditor.errors + auditor.fixes]


def close(a, b):
    return all(isclose(x, y, rel_tol=1e-9, abs_tol=1e-9) for x, y in zip(a, b, strict=True))


def area(points):
    return abs(sum(p.x * q.y - p.y * q.x for p, q in zip(points, points[1:] + points[:1]))) / 2


def compare(told, found, format_):
    kind, layer, colour, *rest = told
    assert found.dxf.layer == layer and found.dxf.get("color", 256) == colour, (told[:3], found.dxf.layer)
    if kind == "Line":
        assert close([*found.dxf.start, *found.dxf.end], rest)
    elif kind == "Circle":
        assert close([*found.dxf.center, found.dxf.radius], rest)
    elif kind == "Text":
        assert close([*found.dxf.insert, found.dxf.height], rest[:4]) and found.dxf.text == rest[4]
    elif format_ == "R12":
        assert found.dxftype() == "POLYLINE"
        curve = [vertex.dxf.location for vertex in found.vertices]
        assert abs(area(curve) / rest[0]["area"] - 1) < 1e-3
        assert close(curve[0], rest[0]["control"][0])
    else:
        control = [list(point) for point in found.control_points]
        assert all(close(a, b) for a, b in zip(control, rest[0]["control"], strict=True))
        curve = found.construction_tool()
        assert curve.degree == 3 and len(curve.knots()) == len(control) + 4
        assert abs(area(list(curve.approximate(4000))) / rest[0]["area"] - 1) < 1e-5


def main(cli, examples):
    for format_ in FORMATS:
        with tempfile.TemporaryDirectory() as folder:
            before, after, again = (f"{folder}/{name}.dxf" for name in ("before", "after", "again"))
            plant(format_, before)
            mapping = [cli, "map", "--wind", "200", "--scale", "0.5", f"{examples}/ammonia-puff.script", "--at", "120,-40"]
            subprocess.run([*mapping, "--drawing", before, "-o", after], check=True)
            added = spliced(tags(before), tags(after))
            told = script(cli, examples, before, folder)
            doc = ezdxf.readfile(after)
            assert audit(after) == audit(before)
            assert [doc.layers.get(name).color for name in ("Conc Zones1 Text", "Conc Zones1")] == [5, 40]
            zones = list(doc.modelspace())[-len(told):]
            for entity, found in zip(told, zones, strict=True):
                compare(entity, found, format_)
            # The same into what was mapped into already: the layers are there.
            subprocess.run([*mapping, "--drawing", after, "-o", again], check=True)
            twice = spliced(tags(after), tags(again))
            assert not [tag for tag in twice if tag[1].strip() == b"LAYER"]
            assert audit(again) == audit(before)
            print(f"{format_}: {len(tags(before))} tags kept, {len(added)} added, {len(told)} entities")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
