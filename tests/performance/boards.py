"""Boards of any size, as the tool gets them: of the components of the examples."""

HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<ipxact:design xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-{edition}">
  <ipxact:vendor>example.org</ipxact:vendor>
  <ipxact:library>{library}</ipxact:library>
  <ipxact:name>many</ipxact:name>
  <ipxact:version>1.0</ipxact:version>
"""
INSTANCE = """    <ipxact:componentInstance>
      <ipxact:instanceName>{name}</ipxact:instanceName>
      <ipxact:componentRef vendor="example.org" library="{library}" name="{component}" version="1.0"/>
    </ipxact:componentInstance>
"""
CONNECTION = """    <ipxact:interconnection>
      <ipxact:name>debug_{number}</ipxact:name>
      <ipxact:activeInterface componentRef="hdu_{number}" busRef="debug_0"/>
      <ipxact:activeInterface componentRef="lumacore_{number}" busRef="debug"/>
    </ipxact:interconnection>
"""


def of_instances(edition, library, instances, rest=""):
    """@param instances  (name, component)"""
    listed = "".join(INSTANCE.format(name=name, library=library, component=component) for name, component in instances)
    return (HEAD.format(edition=edition, library=library) +
            f"  <ipxact:componentInstances>\n{listed}  </ipxact:componentInstances>\n{rest}</ipxact:design>\n")


def flat(processors):
    """Lumacores, each on a debug module of its own."""
    instances = [(f"{component}_{number}", component) for number in range(processors) for component in ("lumacore", "hdu")]
    connections = "".join(CONNECTION.format(number=number) for number in range(processors))
    return of_instances("2014", "board", instances,
                        f"  <ipxact:interconnections>\n{connections}  </ipxact:interconnections>\n")


def hierarchical(clusters):
    """Components that hold a core and its memory each."""
    return of_instances("2022", "parts", [(f"cluster_{number}", "cluster") for number in range(clusters)])
