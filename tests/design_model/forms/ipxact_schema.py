"""What a set of IP-XACT schemas allows: which elements and attributes stand
where, by the way from the document element to them."""

import glob
import os
import xml.etree.ElementTree as ElementTree

# The folder of each edition's schemas.
EDITIONS = {
    "1.5": "ipxact-1.5",
    "2009": "ieee-1685-2009",
    "2014": "ieee-1685-2014",
    "2022": "ieee-1685-2022",
}

XS = "{http://www.w3.org/2001/XMLSchema}"


def local(name):
    """Without its prefix."""
    return name.rpartition(":")[2]


class Schema:
    """The schema files of one edition."""

    def __init__(self, folder):
        self.named = {}
        for path in sorted(glob.glob(os.path.join(folder, "*.xsd"))):
            for node in ElementTree.parse(path).getroot():
                if "name" in node.attrib:
                    self.named[node.tag, node.attrib["name"]] = node

    def find(self, tag, name):
        return self.named.get((XS + tag, local(name)))

    def roots(self):
        return {name for tag, name in self.named if tag == XS + "element"}

    def declaration(self, node):
        """The element that a reference is to."""
        return self.find("element", node.attrib["ref"]) if "ref" in node.attrib else node

    def content(self, element):
        """What the element's type is made of, inherited parts first."""
        type_node = element.find(XS + "complexType")
        if type_node is None and "type" in element.attrib:
            type_node = self.find("complexType", element.attrib["type"])
        return [] if type_node is None else self.parts(type_node)

    def parts(self, type_node):
        for extension in type_node.findall("*/" + XS + "extension"):
            base = self.find("complexType", extension.attrib["base"])
            inherited = [] if base is None else self.parts(base)
            return inherited + [extension]
        return [type_node]

    def walk(self, node, elements, attributes):
        for child in node:
            if child.tag == XS + "element":
                target = self.declaration(child)
                if target is not None:
                    elements.setdefault(target.attrib["name"], []).append(target)
            elif child.tag == XS + "attribute":
                attributes.add(local(child.attrib.get("name") or child.attrib["ref"]))
            elif child.tag in (XS + "group", XS + "attributeGroup") and "ref" in child.attrib:
                group = self.named.get((child.tag, local(child.attrib["ref"])))
                if group is not None:
                    self.walk(group, elements, attributes)
            elif child.tag in (XS + "sequence", XS + "choice", XS + "all"):
                self.walk(child, elements, attributes)

    def inside(self, declarations):
        """Child elements (with their declarations) and attributes of any of them."""
        elements, attributes = {}, set()
        for declaration in declarations:
            for part in self.content(declaration):
                self.walk(part, elements, attributes)
        return elements, attributes

    def at(self, path):
        """The declarations of the element at a path, empty if there is none."""
        names = path.split("/")
        root = self.find("element", names[0])
        found = [] if root is None else [root]
        for name in names[1:]:
            found = self.inside(found)[0].get(name, [])
        return found

    def allows(self, path):
        """Whether there is such an element ("a/b"), or attribute ("a/b@c")."""
        element, _, attribute = path.partition("@")
        found = self.at(element)
        if not attribute:
            return bool(found)
        return attribute in self.inside(found)[1]
