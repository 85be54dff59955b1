// design --graph: the text for Graphviz, read again by a reader of its own, and
// by Graphviz where that is installed.
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <set>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The part of Graphviz's language that the tool writes.
///
///   graph     = "digraph" id "{" statement* "}"
///   statement = id "=" id ";" | "subgraph" id "{" statement* "}"
///             | id ( "->" id )? ( "[" ( id "=" id ","? )* "]" )? ";"
class GraphReader {
public:
  struct Node {
    std::map<std::string, std::string> attributes;
    std::vector<std::string> clusters; ///< The labels of those around it.
  };
  struct Edge {
    std::string from, to;
    std::map<std::string, std::string> attributes;
  };
  std::map<std::string, Node> nodes;
  std::vector<Edge> edges;
  std::string fault;

  explicit GraphReader(std::string read) : text(std::move(read)) {
    expect("digraph");
    id();
    expect("{");
    statements();
    expect("}");
    if (fault.empty() && !next().empty())
      fault = "more behind the graph";
  }

  /// The node with that label; empty if there is none.
  std::string named(const std::string &label) const {
    for (const auto &[id, node] : nodes) {
      const auto found = node.attributes.find("label");
      if (found != node.attributes.end() && found->second == label)
        return id;
    }
    return "";
  }
  bool hasEdge(const std::string &from, const std::string &tail,
               const std::string &to, const std::string &head) const {
    for (const Edge &edge : edges)
      if (edge.from == named(from) && edge.to == named(to) &&
          edge.attributes.count("taillabel") != 0 &&
          edge.attributes.at("taillabel") == tail &&
          edge.attributes.at("headlabel") == head)
        return true;
    return false;
  }

private:
  static bool isName(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
  }
  void skip() {
    while (at < text.size() &&
           std::isspace(static_cast<unsigned char>(text[at])) != 0)
      ++at;
  }
  /// The next word or mark, which stays; empty at the end.
  std::string next() {
    skip();
    if (at == text.size())
      return "";
    if (text.compare(at, 2, "->") == 0)
      return "->";
    std::size_t end = at;
    while (end < text.size() && isName(text[end]))
      ++end;
    return text.substr(at, end == at ? 1 : end - at);
  }
  bool take(const std::string &word) {
    if (next() != word)
      return false;
    at += word.size();
    return true;
  }
  void expect(const std::string &word) {
    if (!take(word) && fault.empty())
      fault = word + " expected at " + text.substr(at, 40);
  }
  /// A quoted one has its escapes taken off as a label has them.
  std::string id() {
    if (next() != "\"") {
      std::string word = next();
      if ((word.empty() || !isName(word[0])) && fault.empty())
        fault = "a name expected at " + text.substr(at, 40);
      at += word.size();
      return word;
    }
    std::string value;
    for (++at; at < text.size() && text[at] != '"'; ++at) {
      if (text[at] == '\\' && ++at < text.size())
        value += text[at] == 'n' ? '\n' : text[at];
      else if (text.compare(at, 5, "&amp;") == 0) {
        value += '&';
        at += 4;
      } else
        value += text[at];
    }
    expect("\"");
    return value;
  }
  std::map<std::string, std::string> attributes() {
    std::map<std::string, std::string> read;
    if (!take("["))
      return read;
    while (fault.empty() && !take("]")) {
      const std::string name = id();
      expect("=");
      read[name] = id();
      take(",");
    }
    return read;
  }
  void statements() {
    while (fault.empty() && !next().empty() && next() != "}")
      statement();
  }
  void statement() {
    if (take("subgraph")) {
      id();
      clusters.emplace_back();
      expect("{");
      statements();
      expect("}");
      clusters.pop_back();
      return;
    }
    const std::string name = id();
    if (take("=")) {
      const std::string value = id();
      if (name == "label" && !clusters.empty())
        clusters.back() = value;
    } else if (take("->")) {
      const std::string to = id();
      edges.push_back({name, to, attributes()});
    } else if (name == "node" || name == "edge") {
      attributes();
    } else {
      nodes[name] = {attributes(), clusters};
    }
    expect(";");
  }

  std::string text;
  std::size_t at = 0;
  std::vector<std::string> clusters;
};

class DesignGraphTest : public ToolTest {
protected:
  GraphReader graphOf(const std::vector<std::string> &more) {
    std::vector<std::string> words = {"design", "--graph"};
    words.insert(words.end(), more.begin(), more.end());
    const Result run = this->run(words);
    EXPECT_EQ(run.status, 0) << run.err;
    GraphReader graph(run.out);
    EXPECT_EQ(graph.fault, "") << run.out;
    for (const GraphReader::Edge &edge : graph.edges) {
      EXPECT_EQ(graph.nodes.count(edge.from), 1U) << edge.from;
      EXPECT_EQ(graph.nodes.count(edge.to), 1U) << edge.to;
    }
    expectGraphvizReads(run.out);
    return graph;
  }

  void expectGraphvizReads(const std::string &text) {
#ifdef ZELDEBUG_DOT
    folder.write("graph.dot", text);
    EXPECT_EQ(std::system(ZELDEBUG_DOT " -Tcanon graph.dot > canon 2>&1"), 0)
        << folder.read("canon");
    EXPECT_THAT(folder.read("canon"), Not(HasSubstr("Warning")));
#else
    static_cast<void>(text);
#endif
  }

  void writeHierarchy();
};

std::string document(const std::string &root, const std::string &name,
                     const std::string &content) {
  return "<i:" + root +
         " xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">"
         "<i:vendor>v</i:vendor><i:library>l</i:library><i:name>" +
         name + "</i:name><i:version>1</i:version>" + content + "</i:" + root +
         ">";
}

std::string instance(const std::string &name, const std::string &component) {
  return "<i:componentInstance><i:instanceName>" + name +
         "</i:instanceName><i:componentRef vendor=\"v\" library=\"l\" name=\"" +
         component + "\" version=\"1\"/></i:componentInstance>";
}

std::string interface(const std::string &name, const std::string &mode) {
  return "<i:busInterface><i:name>" + name + "</i:name><i:" + mode +
         "/></i:busInterface>";
}

std::string end(const std::string &instance, const std::string &interface) {
  return instance.empty() ? "<i:hierInterface busRef=\"" + interface + "\"/>"
                          : "<i:activeInterface componentRef=\"" + instance +
                                "\" busRef=\"" + interface + "\"/>";
}

std::string wire(const std::string &name, const std::string &ends) {
  return "<i:interconnection><i:name>" + name + "</i:name>" + ends +
         "</i:interconnection>";
}

/// cpu -> box.in -> box.ram "a&b", cpu and box.ram on a wire of three with
/// spare; names that Graphviz would take for something else.
void DesignGraphTest::writeHierarchy() {
  folder.write("cpu.xml",
               document("component", "lumacore",
                        "<i:busInterfaces>" + interface("bus", "master") +
                            interface("all", "master") + "</i:busInterfaces>"));
  folder.write("ram.xml",
               document("component", "a\\nb",
                        "<i:busInterfaces>" + interface("p&amp;lt;", "slave") +
                            "</i:busInterfaces>"));
  folder.write(
      "box.xml",
      document("component", "box",
               "<i:busInterfaces>" + interface("in", "slave") +
                   "</i:busInterfaces><i:model><i:views><i:view><i:name>w"
                   "</i:name><i:designInstantiationRef>d"
                   "</i:designInstantiationRef></i:view></i:views>"
                   "<i:instantiations><i:designInstantiation><i:name>d"
                   "</i:name><i:designRef vendor=\"v\" library=\"l\" "
                   "name=\"inner\" version=\"1\"/></i:designInstantiation>"
                   "</i:instantiations></i:model>"));
  folder.write(
      "inner.xml",
      document("design", "inner",
               "<i:componentInstances>" + instance("say \"ram\"", "a\\nb") +
                   "</i:componentInstances><i:interconnections>" +
                   wire("w", end("", "in") +
                                 end("say &quot;ram&quot;", "p&amp;lt;")) +
                   "</i:interconnections>"));
  folder.write(
      "top.xml",
      document("design", "top",
               "<i:componentInstances>" + instance("cpu", "lumacore") +
                   instance("box", "box") + instance("one", "a\\nb") +
                   instance("two", "a\\nb") +
                   "</i:componentInstances><i:interconnections>" +
                   wire("w", end("box", "in") + end("cpu", "bus")) +
                   wire("a", end("cpu", "all") + end("one", "p&amp;lt;") +
                                 end("two", "p&amp;lt;")) +
                   "</i:interconnections>"));
}

TEST_F(DesignGraphTest, ShowsWhoIsWiredToWhom) {
  const GraphReader graph = graphOf({board});
  EXPECT_EQ(graph.nodes.size(), 22U);
  EXPECT_TRUE(
      graph.hasEdge("hdu_0\nhdu", "debug_0", "lumacore_0\nlumacore", "debug"));
  // From the side that accesses come from, whichever end stands first.
  EXPECT_TRUE(graph.hasEdge("soft_bus\nbus_interconnect", "target_2",
                            "flash_0\nemc_ctl_cedar", "bus"));
  EXPECT_FALSE(graph.hasEdge("flash_0\nemc_ctl_cedar", "bus",
                             "soft_bus\nbus_interconnect", "target_2"));
}

TEST_F(DesignGraphTest, MarksProcessorsAndDebugModules) {
  const GraphReader graph = graphOf({board});
  const auto shape = [&graph](const std::string &label) {
    return graph.nodes.at(graph.named(label)).attributes.at("shape");
  };
  EXPECT_EQ(shape("lumacore_0\nlumacore"), "box3d");
  EXPECT_EQ(shape("r5_0\nsoc_cortexr5"), "box3d");
  EXPECT_EQ(shape("ppc_jtag_0\nppc_jtag_link"), "hexagon");
  EXPECT_EQ(shape("uart_0\nuart_mini_cedar"), "box");
  std::vector<std::string> attached;
  for (const GraphReader::Edge &edge : graph.edges)
    if (edge.attributes.count("style") != 0 &&
        edge.from == graph.named("hdu_0\nhdu"))
      attached.push_back(graph.nodes.at(edge.to).attributes.at("label") + " " +
                         edge.attributes.at("label"));
  EXPECT_EQ(attached,
            (std::vector<std::string>{"lumacore_0\nlumacore debugs, 1",
                                      "lumacore_1\nlumacore debugs, 2"}));
}

TEST_F(DesignGraphTest, HasHierarchiesAsClusters) {
  writeHierarchy();
  const GraphReader graph = graphOf({"top.xml"});
  const std::string ram = graph.named("say \"ram\"\na\\nb");
  ASSERT_NE(ram, "");
  EXPECT_EQ(graph.nodes.at(ram).clusters, (std::vector<std::string>{"box"}));
  EXPECT_THAT(graph.nodes.at(graph.named("cpu\nlumacore")).clusters, IsEmpty());
  EXPECT_TRUE(graph.hasEdge("cpu\nlumacore", "bus", "box\nbox", "in"));
  EXPECT_TRUE(graph.hasEdge("box\nbox", "in", "say \"ram\"\na\\nb", "p&lt;"));
}

TEST_F(DesignGraphTest, HasAPointForAConnectionOfMoreThanTwo) {
  writeHierarchy();
  const GraphReader graph = graphOf({"top.xml"});
  std::map<std::string, int> points;
  for (const auto &[name, node] : graph.nodes)
    if (node.attributes.at("shape") == "point")
      points[name] = 0;
  ASSERT_EQ(points.size(), 1U);
  const std::string point = points.begin()->first;
  std::set<std::string> from, to;
  for (const GraphReader::Edge &edge : graph.edges) {
    if (edge.to == point)
      from.insert(edge.from);
    if (edge.from == point)
      to.insert(edge.to);
  }
  EXPECT_EQ(from, std::set<std::string>{graph.named("cpu\nlumacore")});
  EXPECT_EQ(to, (std::set<std::string>{graph.named("one\na\\nb"),
                                       graph.named("two\na\\nb")}));
}

TEST_F(DesignGraphTest, ShowsOneSubtree) {
  writeHierarchy();
  const GraphReader graph = graphOf({"top.xml", "--under", "box"});
  EXPECT_EQ(graph.nodes.size(), 2U);
  EXPECT_EQ(graph.edges.size(), 1U);
  const GraphReader leaf = graphOf({"top.xml", "--under", "box.say \"ram\""});
  EXPECT_EQ(leaf.nodes.size(), 1U);
  EXPECT_THAT(leaf.edges, IsEmpty());
}

TEST_F(DesignGraphTest, RefusesAPathThatIsNotThere) {
  writeHierarchy();
  const struct {
    const char *path, *message;
  } rows[] = {
      {"bix", "--under: 'bix': the design has no instance of that name; did "
              "you mean 'box'?"},
      {"BOX", "--under: 'BOX': the design has no instance of that name; did "
              "you mean 'box'?"},
      {"", "--under: '': the design has no instance of that name; 'zeldebug "
           "design' lists them all"},
      {"processor", "--under: 'processor': the design has no instance of that "
                    "name; 'zeldebug design' lists them all"},
      {"box.say \"rom\"",
       "--under: 'box.say \"rom\"': there is nothing of that name inside "
       "'box'; did you mean 'box.say \"ram\"'?"},
      {"box.", "--under: 'box.': there is nothing of that name inside 'box'; "
               "'zeldebug design' lists them all"},
      {"cpu.x", "--under: 'cpu.x': there is nothing of that name inside 'cpu'; "
                "'zeldebug design' lists them all"},
  };
  for (const auto &row : rows) {
    const Result run =
        this->run({"design", "top.xml", "--graph", "--under", row.path});
    EXPECT_EQ(run.status, 2) << row.path;
    EXPECT_EQ(run.out, "") << row.path;
    EXPECT_THAT(run.err, HasSubstr(row.message));
  }
  const Result alone = this->run({"design", "top.xml", "--under", "box"});
  EXPECT_EQ(alone.status, 2);
  EXPECT_THAT(alone.err, HasSubstr("give --graph as well"));
}

TEST_F(DesignGraphTest, IsAFieldOfTheDocument) {
  const json document = runJson({"design", board, "--graph"});
  EXPECT_EQ(document["graph"], this->run({"design", board, "--graph"}).out);
  EXPECT_EQ(document["instances"].size(), 22U);
  EXPECT_EQ(runJson({"design", board}).count("graph"), 0U);
}

} // namespace
} // namespace tool
