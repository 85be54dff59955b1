"""A flat IP-XACT design of any size, with the components that it is made of:
Lumacores with nine peripherals each."""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tests" / "performance"))
import boards  # noqa: E402  (from the folder above)

INSTANCES_OF_PROCESSOR = 10  # itself and its peripherals

COMPONENT = """<?xml version="1.0" encoding="UTF-8"?>
<ipxact:component xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
  <ipxact:vendor>example.org</ipxact:vendor>
  <ipxact:library>flat</ipxact:library>
  <ipxact:name>{name}</ipxact:name>
  <ipxact:version>1.0</ipxact:version>
  <ipxact:busInterfaces>
    <ipxact:busInterface>
      <ipxact:name>bus</ipxact:name>
      <ipxact:busType vendor="example.org" library="bus" name="bus" version="1.0"/>
      <ipxact:{mode}/>
    </ipxact:busInterface>
  </ipxact:busInterfaces>
</ipxact:component>
"""
CONNECTION = """    <ipxact:interconnection>
      <ipxact:name>wire_{number}</ipxact:name>
      <ipxact:activeInterface componentRef="{processor}" busRef="bus"/>
      <ipxact:activeInterface componentRef="{peripheral}" busRef="bus"/>
    </ipxact:interconnection>
"""


def design_text(count):
    instances, connections = [], []
    for number in range(count):
        if number % INSTANCES_OF_PROCESSOR == 0:
            processor = f"lumacore_{number}"
            instances.append((processor, "lumacore"))
            continue
        instances.append((f"uart_{number}", "uart_mini_cedar"))
        connections.append(CONNECTION.format(number=number, processor=processor, peripheral=f"uart_{number}"))
    wires = "".join(connections)
    return boards.of_instances("2014", "flat", instances,
                               f"  <ipxact:interconnections>\n{wires}  </ipxact:interconnections>\n")


def write(folder, instances):
    """@return the design's file, and the bytes of all files"""
    texts = {"lumacore.xml": COMPONENT.format(name="lumacore", mode="master"),
             "uart.xml": COMPONENT.format(name="uart_mini_cedar", mode="slave"),
             "flat.xml": design_text(instances)}
    for name, text in texts.items():
        (folder / name).write_text(text, encoding="utf-8")
    return folder / "flat.xml", sum(map(len, texts.values()))
