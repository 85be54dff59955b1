"""Loads a design once, by a library of Python, as bench_load does by those of C++:

  load_tree.py lxml|elementtree [DESIGN [ANSWER]]

Both libraries have the same functions, so that both do the same.
"""

import json
import pathlib
import sys
import time

if sys.argv[1] == "lxml":
    from lxml import etree
else:
    import xml.etree.ElementTree as etree

IPXACT = "{http://www.accellera.org/XMLSchema/IPXACT/1685-2014}"
IDENTITY = ("vendor", "library", "name", "version")


def read_component(root):
    """@return its identity, and whether each of its interfaces is a master"""
    identity = tuple(root.findtext(IPXACT + part) for part in IDENTITY)
    return identity, {interface.findtext(IPXACT + "name"): interface.find(IPXACT + "master") is not None
                      for interface in root.iterfind(f"{IPXACT}busInterfaces/{IPXACT}busInterface")}


def read_instances(root):
    for instance in root.iterfind(f"{IPXACT}componentInstances/{IPXACT}componentInstance"):
        reference = instance.find(IPXACT + "componentRef")
        yield instance.findtext(IPXACT + "instanceName"), tuple(map(reference.get, IDENTITY))


def read_connections(root):
    for connection in root.iterfind(f"{IPXACT}interconnections/{IPXACT}interconnection"):
        one, other = ((end.get("componentRef"), end.get("busRef"))
                      for end in connection.iterfind(IPXACT + "activeInterface"))
        yield one, other
        yield other, one


def load(design):
    """@return the peripherals of each processor"""
    components = {}
    for file in design.parent.glob("*.xml"):
        root = etree.parse(str(file)).getroot()
        if root.tag == IPXACT + "component":
            identity, interfaces = read_component(root)
            components[identity] = interfaces
        elif file == design:
            instances = dict(read_instances(root))
            connections = list(read_connections(root))

    def is_master(end):
        instance, interface = end
        return components[instances[instance]][interface]

    peripherals = {name: [] for name, (_, _, component, _) in instances.items() if component == "lumacore"}
    for one, other in connections:
        if one[0] in peripherals and is_master(one) and not is_master(other):
            peripherals[one[0]].append(other[0])
    return peripherals


def memory(figure):
    """A figure of the kernel about this process, in bytes."""
    for line in pathlib.Path("/proc/self/status").read_text(encoding="ascii").splitlines():
        if line.startswith(figure):
            return int(line.split()[1]) * 1024
    sys.exit("no figures of memory")


def main(design, answer=None):
    held_before = memory("VmRSS:")
    began, used_before = time.perf_counter_ns(), time.process_time_ns()
    peripherals = load(pathlib.Path(design))
    used, taken = time.process_time_ns() - used_before, time.perf_counter_ns() - began
    print(json.dumps({"cpu_time": used, "real_time": taken, "peak": memory("VmHWM:") - held_before}))
    if answer is not None:
        lines = [f"{name}: {' '.join(names)}\n" for name, names in peripherals.items()]
        pathlib.Path(answer).write_text("".join(lines), encoding="utf-8")


if __name__ == "__main__" and len(sys.argv) > 2:
    main(*sys.argv[2:])
