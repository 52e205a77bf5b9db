#!/usr/bin/python3
"""Independent count of a finite-element deck: count_model.py MODEL.inp

Shares no code with modelreport: another language, another way of reading (the whole deck becomes a
list of cards first), other formulas where more than one exists. Prints the model as JSON.
"""
import json
import math
import os
import re
import sys

# Quadrature constants as the library documents them for its solids.
GAUSS_8 = 0.5773503
WEDGE_POINTS = ((0.33333333, 0.33333333), (0.6, 0.19999995231628418),
                (0.19999995231628418, 0.6), (0.19999995231628418, 0.19999995231628418))
WEDGE_WEIGHTS = (-0.28125, 0.2604166, 0.2604166, 0.2604166)

SOLID = re.compile(r"^(?:C|DC|F|AC)3D(4|6|8|10|15|20)(?:[A-Z].*)?$")
SURFACE = re.compile(r"^(?:S|CPS|CPE|CAX|M3D)([3468])(?:[A-Z].*)?$")
LINE = re.compile(r"^(B21|B31|B32|T2D2|T3D2|T3D3)(?:[A-Z].*)?$")
CORNERS = {4: 4, 10: 4, 6: 6, 15: 6, 8: 8, 20: 8}
LINE_NODES = {"B21": 2, "B31": 2, "B32": 3, "T2D2": 2, "T3D2": 2, "T3D3": 3}


def classify(kind):
    """(measure, number of nodes or None, corner positions) of an element type."""
    if match := SOLID.match(kind):
        nodes = int(match.group(1))
        return "volume", nodes, range(CORNERS[nodes])
    if match := SURFACE.match(kind):
        nodes = int(match.group(1))
        return "area", nodes, range(3 if nodes in (3, 6) else 4)
    if match := LINE.match(kind):
        nodes = LINE_NODES[match.group(1)]
        return "length", nodes, (0, nodes - 1)
    return None, None, ()


def split_card(line):
    fields = line[1:].split(",")
    options = {}
    for field in fields[1:]:
        name, _, value = field.partition("=")
        options["".join(name.split()).upper()] = value.strip().strip('"')
    return "".join(fields[0].split()).upper(), options


def lines_of(path):
    """The lines that count, those of included files in their place."""
    with open(path, "rb") as file:
        lines = file.read().decode("latin-1").replace("\r\n", "\n").split("\n")
    for line in map(str.strip, lines):
        keyword, options = split_card(line) if line.startswith("*") else (None, None)
        if keyword == "INCLUDE":
            yield from lines_of(os.path.join(os.path.dirname(path), options["INPUT"]))
        elif line and not line.startswith("**"):
            yield line


def cards(path):
    """Yields (keyword, options, data lines)."""
    card = None
    for line in lines_of(path):
        if line.startswith("*"):
            if card:
                yield card
            card = (*split_card(line), [])
        elif card:
            card[2].append(line)
    if card:
        yield card


def number(text):
    return float(text.upper().replace("D", "E")) if text.strip() else 0.0


def read_elements(options, data):
    nodes_of_type = classify(options["TYPE"].upper())[1]
    pending = []
    for line in data:
        pending += [int(field) for field in line.split(",") if field.strip()]
        if len(pending) > nodes_of_type if nodes_of_type else not line.endswith(","):
            yield pending[0], pending[1:][:nodes_of_type]
            pending = []


def set_members(options, data, known):
    for line in data:
        fields = [field.strip() for field in line.split(",") if field.strip()]
        if "GENERATE" in options:
            first, last, step = [int(field) for field in (fields + ["1"])[:3]]
            yield from range(first, last + 1, step)
        else:
            for field in fields:
                yield from [int(field)] if field.lstrip("+-").isdigit() else known[field.upper()]


class Model:
    def __init__(self, path):
        self.nodes, self.elements = {}, {}
        self.sets = {"NSET": {}, "ELSET": {}}
        self.sections = {}
        for keyword, options, data in cards(path):
            self.take(keyword, options, data)

    def add(self, kind, name, members):
        if name:
            self.sets[kind].setdefault(name.upper(), set()).update(members)

    def take(self, keyword, options, data):
        if keyword == "NODE":
            for line in data:
                fields = line.split(",")
                coordinates = [number(field) for field in (fields[1:] + ["", "", ""])[:3]]
                self.nodes[int(fields[0])] = coordinates
                self.add("NSET", options.get("NSET"), [int(fields[0])])
        elif keyword == "ELEMENT":
            for ident, nodes in read_elements(options, data):
                self.elements[ident] = (options["TYPE"].upper(), nodes)
                self.add("ELSET", options.get("ELSET"), [ident])
        elif keyword in self.sets:
            self.add(keyword, options[keyword], [])
            self.add(keyword, options[keyword], set_members(options, data, self.sets[keyword]))
        elif keyword in ("SOLIDSECTION", "SHELLSECTION", "BEAMSECTION"):
            for ident in self.sets["ELSET"][options["ELSET"].upper()]:
                self.sections[ident] = options["ELSET"].upper()

    def measure(self, ident):
        kind, nodes = self.elements[ident]
        what, _, corners = classify(kind)
        points = [self.nodes[nodes[corner]] for corner in corners]
        if what == "volume":
            return what, abs({4: tetrahedron, 6: wedge, 8: hexahedron}[len(points)](points))
        if what == "area":
            return what, sum(triangle(points[0], points[i], points[i + 1]) for i in range(1, len(points) - 1))
        if what == "length":
            return what, math.dist(points[0], points[1])
        return None, None

    def centroid(self, what):
        """Of all elements with that measure, weighted by it; None when there is nothing."""
        parts = []
        for kind, nodes in self.elements.values():
            measure, _, corners = classify(kind)
            if measure == what:
                parts += CENTRES[what]([self.nodes[nodes[corner]] for corner in corners])
        size = math.fsum(part for part, _ in parts)
        if not size > 0:
            return None
        return [math.fsum(part * centre[axis] for part, centre in parts) / size for axis in range(3)]

    def solids(self):
        """Middle of the box, radius of the sphere, radius of the cylinder along Z."""
        axes = list(zip(*self.nodes.values())) or [(0.0,)] * 3
        middle = [(min(axis) + max(axis)) / 2 for axis in axes]
        return (middle, max((math.dist(middle, node) for node in self.nodes.values()), default=0.0),
                max((math.dist(middle[:2], node[:2]) for node in self.nodes.values()), default=0.0))

    def cut(self, plane, tolerance):
        """The elements that the plane cuts, and those that it only touches."""
        length = math.sqrt(dot(plane, plane[:3]))
        cut, touched = [], []
        for ident, (_, nodes) in sorted(self.elements.items()):
            far = [(dot(plane, self.nodes[node]) + plane[3]) / length for node in nodes if node]
            above, below = any(d > tolerance for d in far), any(d < -tolerance for d in far)
            if above and below:
                cut.append(ident)
            elif far and not (all(d > tolerance for d in far) or all(d < -tolerance for d in far)):
                touched.append(ident)
        return cut, touched

    def totals(self):
        types, sums = {}, {"volume": [], "area": [], "length": []}
        for ident, (kind, _) in self.elements.items():
            types.setdefault(kind, []).append(ident)
            what, value = self.measure(ident)
            if what:
                sums[what].append(value)
        axes = list(zip(*self.nodes.values())) or [(0.0,)] * 3
        return {"nodes": sorted(self.nodes), "elements": sorted(self.elements),
                "types": {kind: sorted(ids) for kind, ids in sorted(types.items())},
                "bounds": [min(axis) for axis in axes] + [max(axis) for axis in axes],
                **{what: math.fsum(values) for what, values in sums.items()}}


def minus(a, b):
    return [x - y for x, y in zip(a, b)]


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def triangle(a, b, c):
    normal = cross(minus(b, a), minus(c, a))
    return math.sqrt(dot(normal, normal)) / 2


def tetrahedron(p):
    return dot(minus(p[1], p[0]), cross(minus(p[2], p[0]), minus(p[3], p[0]))) / 6


def jacobian(points, gradients):
    rows = [[sum(g[r] * p[c] for g, p in zip(gradients, points)) for c in range(3)] for r in range(3)]
    return dot(rows[0], cross(rows[1], rows[2]))


def hexahedron(p):
    corners = [(-1, -1, -1), (1, -1, -1), (1, 1, -1), (-1, 1, -1), (-1, -1, 1), (1, -1, 1), (1, 1, 1), (-1, 1, 1)]
    total = 0.0
    for point in [(i, j, k) for i in (-1, 1) for j in (-1, 1) for k in (-1, 1)]:
        x, y, z = (GAUSS_8 * value for value in point)
        total += jacobian(p, [(a * (1 + b * y) * (1 + c * z) / 8, b * (1 + a * x) * (1 + c * z) / 8,
                               c * (1 + a * x) * (1 + b * y) / 8) for a, b, c in corners])
    return total


def wedge(p):
    total = 0.0
    for (one, two), weight in zip(WEDGE_POINTS, WEDGE_WEIGHTS):
        for zeta in (-GAUSS_8, GAUSS_8):
            low, high, rest = (1 - zeta) / 2, (1 + zeta) / 2, 1 - one - two
            total += weight * jacobian(p, [
                (low, 0, -one / 2), (0, low, -two / 2), (-low, -low, -rest / 2),
                (high, 0, one / 2), (0, high, two / 2), (-high, -high, rest / 2)])
    return total


def hexahedron_parts(p):
    """Volumes round the points of an exact quadrature of volume and moment, and where they are."""
    corners = [(-1, -1, -1), (1, -1, -1), (1, 1, -1), (-1, 1, -1), (-1, -1, 1), (1, -1, 1), (1, 1, 1), (-1, 1, 1)]
    for point in [(i, j, k) for i in (-1, 1) for j in (-1, 1) for k in (-1, 1)]:
        x, y, z = (value / math.sqrt(3) for value in point)
        shape = [(1 + a * x) * (1 + b * y) * (1 + c * z) / 8 for a, b, c in corners]
        volume = jacobian(p, [(a * (1 + b * y) * (1 + c * z) / 8, b * (1 + a * x) * (1 + c * z) / 8,
                               c * (1 + a * x) * (1 + b * y) / 8) for a, b, c in corners])
        yield volume, [sum(n * q[axis] for n, q in zip(shape, p)) for axis in range(3)]


def solid_parts(p):
    """A solid as a hexahedron some of whose corners fall together, with a positive volume."""
    as_hexahedron = {4: (0, 1, 2, 2, 3, 3, 3, 3), 6: (0, 1, 2, 2, 3, 4, 5, 5), 8: range(8)}[len(p)]
    parts = list(hexahedron_parts([p[i] for i in as_hexahedron]))
    sign = math.copysign(1, math.fsum(volume for volume, _ in parts))
    return [(sign * volume, centre) for volume, centre in parts]


def exact_volume(p):
    return math.fsum(volume for volume, _ in solid_parts(p))


def middle(points):
    return [sum(axis) / len(points) for axis in zip(*points)]


CENTRES = {
    "volume": solid_parts,
    "area": lambda p: [(triangle(p[0], p[i], p[i + 1]), middle([p[0], p[i], p[i + 1]]))
                       for i in range(1, len(p) - 1)],
    "length": lambda p: [(math.dist(p[0], p[1]), middle(p))],
}


if __name__ == "__main__":
    print(json.dumps(Model(sys.argv[1]).totals(), indent=1))
