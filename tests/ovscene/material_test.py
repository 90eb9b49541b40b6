#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene material. The environment is that of ovscene_case.py."""
import json
import os
import pathlib
import re
import unittest

from op_tree_case import OpTreeCase

PLUGINS = os.environ.get("OVSCENE_TEST_PLUGINS")
MODEL = pathlib.Path("/usr/share/assimp/models/glTF2/BoxTextured-glTF/BoxTextured.gltf")
LID = "/root/box/lid"


def single(value):
    return {"$float": value}


def node(name, type, **more):
    return {"name": name, "type": type, **more}


def network(nodes, terminals, **more):
    return {"style": "network", "nodes": nodes, **more, "terminals": terminals}


PAINT = network(
    {"paint": node("paint", "standard_surface", parameters={"base": single(0.8)},
                   connections={"base_color": "out@picture"}),
     "picture": node("picture", "image", parameters={"file": "a.png"})},
    {"surface": "paint"},
    interface={"picture": {"src": "picture.file"}, "tint": {"src": "picture.tint"}, "unset": {"src": "paint.base"}},
    parameters={"picture": "b.png", "tint": single(0.5)})
PLASTIC = {"surfaceShader": "plastic", "surfaceParams": {"gloss": single(0.5)}, "note": 1}
CLAY = {"surfaceShader": "clay", "displacementShader": "dents", "surfaceParams": {"gloss": single(0.1)}}
GROUND = network({"bumps": node("bumps", "noise3d"), "earth": node("earth", "standard_surface")},
                 {"surface": "earth", "displacement": "bumps"})


def scene(top, box, lid):
    """Three locations below each other; None for one without a material."""
    def attributes(material, **more):
        return {**more, **({} if material is None else {"material": material})}
    return {"a": attributes(top), "c": {"box": {
        "a": attributes(box), "c": {"lid": {"a": attributes(lid, type="mesh")}}}}}


TOKEN = re.compile(r'\s*(?:("(?:[^"\\]|\\.)*")|([A-Za-z_][A-Za-z_0-9]*)|(->|[{}\[\];=,]))', re.S)


class Dot:
    """Reads the part of Graphviz's language that the program writes."""

    ESCAPES = {"\\n": "\n", "\\\\": "\\", '\\"': '"', "&amp;": "&"}

    def __init__(self, text):
        self.tokens, at = [], 0
        text = text.rstrip()
        while at < len(text):
            found = TOKEN.match(text, at)
            if not found:
                raise ValueError("no token at " + text[at:at + 40])
            self.tokens.append(found.group().strip())
            at = found.end()
        self.labels, self.edges, self.title = {}, [], None
        for word in ("digraph", "material", "{"):
            self.take(word)
        while self.tokens[0] != "}":
            self.statement()
        self.take("}")
        if self.tokens:
            raise ValueError("something behind the graph")

    def take(self, expected=None):
        token = self.tokens.pop(0)
        if expected not in (None, token):
            raise ValueError(f"{token} in the place of {expected}")
        return token

    def read(self, token):
        text = re.sub(r'\\[n\\"]|&amp;', lambda found: self.ESCAPES[found.group()], token[1:-1])
        if re.search(r'&(?!amp;)', token):
            raise ValueError("a bare &")
        return text

    def attributes(self):
        attributes = {}
        while self.tokens[0] in ("[", ","):
            self.take()
            name = self.take()
            self.take("=")
            attributes[name] = self.take()
        if attributes:
            self.take("]")
        return attributes

    def statement(self):
        name = self.take()
        if self.tokens[0] == "=":
            self.take()
            value = self.take()
            self.title = self.read(value) if name == "label" else self.title
        elif self.tokens[0] == "->":
            self.take()
            target = self.take()
            label = self.attributes().get("label")
            self.edges.append((name, target, label and self.read(label)))
        else:
            label = self.attributes().get("label")
            if label:
                self.labels[name] = self.read(label)
        self.take(";")

    def named_edges(self):
        """Sources and targets by the first lines of their labels."""
        return [(self.labels[a].split("\n")[0], self.labels[b].split("\n")[0], label)
                for a, b, label in self.edges]


class Material(OpTreeCase):
    def setUp(self):
        self.write("mixed.json", GROUND, PLASTIC, PAINT)

    def write(self, name, *materials):
        return self.write_document(name, "static scene", scene(*materials))

    def told(self, *arguments):
        return json.loads(self.ok("material", *arguments, "--json"))

    def drawn(self, *arguments):
        return Dot(self.ok("material", *arguments, "--dot"))

    def test_a_mixed_chain(self):
        self.matches_golden("material.txt", self.ok("material", "mixed.json", LID))

    def test_the_nodes_of_a_network(self):
        self.matches_golden("material_network.txt", self.ok("material", "mixed.json", LID, "--network"))

    def test_the_network_for_graphviz(self):
        self.matches_golden("material.dot", self.ok("material", "mixed.json", LID, "--dot"))

    def test_a_classic_chain(self):
        self.write("classic.json", CLAY, None, PLASTIC)
        self.matches_golden("material_classic.txt", self.ok("material", "classic.json", LID))

    def test_json_tells_all_of_it_in_its_order(self):
        order = ["file", "path", "type", "style", "terminals", "undriven", "chain"]
        self.assertEqual([*order, "nodes", "leftOut", "material"], list(self.told("mixed.json", LID)))
        self.write("classic.json", CLAY, None, PLASTIC)
        self.assertEqual([*order, "children", "material"], list(self.told("classic.json", LID)))

    def test_terminals_tell_their_node_and_the_location_it_comes_from(self):
        told = self.told("mixed.json", LID)
        self.assertEqual([
            {"name": "surface", "node": "paint:0", "number": 0, "from": LID},
            {"name": "displacement", "node": "bumps:2", "number": 2, "from": "/root"}], told["terminals"])

    def test_what_was_dropped_says_why(self):
        def share(number, path, style, gives, nodes, why):
            return {"number": number, "from": path, "style": style, "gives": gives, "nodes": nodes,
                    "dropped": why != "", "whyDropped": why}
        self.assertEqual([
            share(0, LID, "network", ["surface"], 2, ""),
            share(1, "/root/box", "classic", [], 0, "nearer materials drive surface"),
            share(2, "/root", "network", ["displacement"], 2, "")], self.told("mixed.json", LID)["chain"])
        self.assertEqual(["it only drives surface", "it only drives surface", ""],
                         [part["whyDropped"] for part in
                          self.told("mixed.json", LID, "--terminals", "displacement")["chain"]])
        self.write("idle.json", GROUND, network({}, {}), PAINT)
        self.assertEqual(["", "it drives no terminal", ""],
                         [part["whyDropped"] for part in self.told("idle.json", LID)["chain"]])
        self.write("same.json", {}, PLASTIC, PLASTIC)
        self.assertEqual(["", "nearer materials have all that it has", "it is empty"],
                         [part["whyDropped"] for part in self.told("same.json", LID)["chain"]])

    def test_a_classic_material_counts_as_a_network_in_a_mixed_chain(self):
        told = self.told("mixed.json", "/root/box")
        self.assertEqual(("network", "surface:0"), (told["style"], told["terminals"][0]["node"]))
        self.assertEqual([("surface:0", "plastic"), ("bumps:1", "noise3d"), ("earth:1", "standard_surface")],
                         [(node["name"], node["type"]) for node in told["nodes"]])

    def test_children_of_a_classic_merge_tell_the_location_that_each_came_from(self):
        self.write("classic.json", CLAY, None, PLASTIC)
        told = self.told("classic.json", LID)
        self.assertEqual([("surfaceShader", 0, LID), ("surfaceParams", 0, LID), ("note", 0, LID),
                          ("displacementShader", 1, "/root")],
                         [tuple(child.values()) for child in told["children"]])
        self.assertEqual([("surface", "plastic", LID), ("displacement", "dents", "/root")],
                         [(t["name"], t["shader"], t["from"]) for t in told["terminals"]])
        self.assertEqual([child["name"] for child in told["material"]["children"]],
                         [child["name"] for child in told["children"]])

    def test_one_material_alone_stands_as_it_is(self):
        for material in (PAINT, CLAY):
            for place in range(3):
                chain = [None] * 3
                chain[place] = material
                self.write("one.json", *chain)
                with self.subTest((material.get("style"), place)):
                    told = self.told("one.json", LID, "--terminals", "other")
                    path = ("/root", "/root/box", LID)[place]
                    self.assertEqual([(0, path, False)],
                                     [(m["number"], m["from"], m["dropped"]) for m in told["chain"]])
                    self.assertEqual({path}, {t["from"] for t in told["terminals"]})
                    self.assertNotIn(":0", json.dumps(told["material"]))
                    text = self.ok("material", "one.json", LID)
                    self.assertIn("one material as it stands\n", text)
                    self.assertRegex(text, rf"\n0 +{path} +\w+ +all of it\n\Z")

    def test_terminals_asked_for_are_merged_in_that_order(self):
        told = self.told("mixed.json", LID, "--terminals", "displacement,light,surface,light")
        self.assertEqual(["surface", "displacement"], [t["name"] for t in told["terminals"]])
        self.assertEqual(["light"], told["undriven"])
        self.assertRegex(self.ok("material", "mixed.json", LID, "--terminals", "light"),
                         r"\nlight +\(nothing drives it\)\n")
        told = self.told("mixed.json", LID, "--terminals", "displacement")
        self.assertEqual(["bumps:2", "earth:2"], [node["name"] for node in told["nodes"]])

    def test_the_usual_terminals_are_those_of_the_chain_that_name_something(self):
        self.write("odd.json", CLAY, network({}, {"surface": "", "light": "lamp", "count": 1}),
                   {"surfaceShader": "", "Shader": "x", "volumeShader": 1, "glowShader": "fire"})
        told = self.told("odd.json", LID)
        self.assertEqual([("glow", "glow:0"), ("light", "lamp:1"), ("surface", "surface:2"),
                          ("displacement", "displacement:2")],
                         [(t["name"], t["node"]) for t in told["terminals"]])

    def test_parameters_that_the_interface_sets_are_marked(self):
        picture = self.told("mixed.json", LID)["nodes"][1]
        self.assertEqual([("file", "picture:0", ["b.png"]), ("tint", "tint:0", [0.5])],
                         [(p["name"], p.get("setBy"), p["value"]["samples"][0]["values"])
                          for p in picture["parameters"]])
        base = self.told("mixed.json", LID)["nodes"][0]["parameters"][0]
        self.assertEqual(("base", None), (base["name"], base.get("setBy")))

    def test_overrides_go_by_the_keys_of_nodes(self):
        self.write("keys.json", None, None, network(
            {"key": node("name", "image", parameters={"file": "a.png"})}, {"surface": "name"},
            interface={"a": {"src": "key.file"}, "b": {"src": "name.file"}, "c": {"src": "key.x.y"}},
            parameters={"a": "1", "b": "2", "c": "3"}))
        self.assertEqual([("file", "a")], [(p["name"], p["setBy"]) for p in
                                           self.told("keys.json", LID)["nodes"][0]["parameters"]])

    def test_connections_lead_to_nodes_and_say_when_there_is_none(self):
        def sources(*arguments):
            return [tuple(c.values()) for c in self.told(*arguments)["nodes"][0]["connections"]]
        self.assertEqual([("base_color", "base_color", "picture:0", "out")], sources("mixed.json", LID)[:1])
        self.write("loose.json", None, None, network(
            {"paint": node("paint", "s", connections={"in:3": "out@gone", "bad": "out"})}, {"surface": "lost"}))
        self.assertEqual([("in:3", "in", "gone", "out")], sources("loose.json", LID))
        self.assertIn("  in:3 <- gone.out (no such node)\n", self.ok("material", "loose.json", LID, "--network"))
        self.assertRegex(self.ok("material", "loose.json", LID), r"surface +lost +\(no such node\) +" + LID)

    def test_an_input_within_an_input_is_left_behind_when_networks_are_merged(self):
        nested = network({"paint": node("paint", "s", connections={"coat": {"color": " out @ paint "}})},
                         {"surface": "paint"})
        self.write("nested.json", None, None, nested)
        self.assertIn("  coat.color <- paint.out\n", self.ok("material", "nested.json", LID, "--network"))
        self.write("nested.json", GROUND, None, nested)
        self.assertIn("  coat.color <- paint.out (no such node)\n",
                      self.ok("material", "nested.json", LID, "--network"))

    def test_nodes_that_are_none_are_told_with_what_they_lack(self):
        self.write("broken.json", None, None, network(
            {"a": 1, "b": {"type": "x"}, "c": {"name": "c"}, "d": node("twin", "first"),
             "e": node("twin", "second")}, {"surface": "twin"}))
        told = self.told("broken.json", LID)
        self.assertEqual([("twin", "second")], [(n["name"], n["type"]) for n in told["nodes"]])
        self.assertEqual([("a", "it is no group"), ("b", 'it has no string "name"'),
                          ("c", 'it has no string "type"'), ("d", "a later node has its name, twin")],
                         [tuple(n.values()) for n in told["leftOut"]])
        self.assertTrue(self.ok("material", "broken.json", LID, "--network").endswith(
            '1 node\nleft out: a; it is no group\nleft out: b; it has no string "name"\n'
            'left out: c; it has no string "type"\nleft out: d; a later node has its name, twin\n'))

    def test_flat_shows_the_merged_material_as_attrs_shows_an_attribute(self):
        self.write("one.json", None, None, PAINT)
        self.assertEqual(
            self.told("mixed.json", LID)["material"]["children"][0],
            {"name": "style", "kind": "string", "tupleSize": 1, "samples": [{"time": 0, "values": ["network"]}]})
        self.write("one.json", None, CLAY, None)
        self.assertEqual(self.ok("attrs", "one.json", "/root/box", "material").split("\n", 1)[1],
                         self.ok("material", "one.json", LID, "--flat").split("\n", 1)[1])
        self.assertIn('\n    paint:0 ', self.ok("material", "mixed.json", LID, "--flat"))

    def test_materials_without_anything_in_them(self):
        self.write("empty.json", {}, None, {})
        self.assertIn("style classic, merged of 2 materials\n\nno terminals\n",
                      self.ok("material", "empty.json", LID))
        self.assertTrue(self.ok("material", "empty.json", LID, "--flat").endswith("\nno attributes\n"))
        self.assertEqual({"kind": "null"}, self.told("empty.json", LID)["material"])

    def test_the_drawing_has_all_nodes_connections_and_terminals(self):
        graph = self.drawn("mixed.json", LID)
        self.assertEqual(LID, graph.title)
        self.assertEqual({"paint:0\nstandard_surface", "picture:0\nimage", "bumps:2\nnoise3d",
                          "earth:2\nstandard_surface", "surface", "displacement"}, set(graph.labels.values()))
        self.assertEqual([("picture:0", "paint:0", "out -> base_color"),
                          ("paint:0", "surface", None), ("bumps:2", "displacement", None)],
                         graph.named_edges())

    def test_the_drawing_shows_nodes_that_are_not_there(self):
        self.write("loose.json", None, None, network(
            {"paint": node("paint", "s", connections={"a": "out@gone", "b": "x@gone"})}, {"surface": "lost"}))
        graph = self.drawn("loose.json", LID)
        self.assertEqual({"n0": "paint\ns", "m0": "gone\n(no such node)", "m1": "lost\n(no such node)",
                          "t0": "surface"}, graph.labels)
        self.assertEqual([("gone", "paint", "out -> a"), ("gone", "paint", "x -> b"), ("lost", "surface", None)],
                         graph.named_edges())

    def test_hostile_names_are_shown_safely(self):
        evil = 'a"]; b -> c [x="\\N\\\x1b[31m\n&lt;\\'
        shown = 'a"]; b -> c [x="\\N\\\\x1B[31m\\x0A&lt;\\'
        self.write("hostile.json", None, PLASTIC, network(
            {evil: node(evil, evil, parameters={evil: evil}, connections={evil: f"{evil}@{evil}"})},
            {evil: evil}))
        graph = self.drawn("hostile.json", LID)
        self.assertEqual({"n0": f"{shown}:0\n{shown}", "t0": shown,
                          "n1": "surface:1\nplastic", "t1": "surface"}, graph.labels)
        self.assertEqual([("n0", "n0", f"{shown} -> {shown}"), ("n0", "t0", None), ("n1", "t1", None)],
                         graph.edges)
        self.assertEqual(shown, self.told("hostile.json", LID)["terminals"][0]["name"])
        for option in ((), ("--network",), ("--flat",)):
            self.assertNotIn("\x1b", self.ok("material", "hostile.json", LID, *option))

    def test_op_trees_both_forms_and_pipes_tell_the_same(self):
        expected = self.told("mixed.json", LID)
        self.write_op_tree("cooked.json", scene=("scene", {"tree": scene(GROUND, None, None)}),
                           box=("assignMaterial", {"paths": "/root/box", "material": PLASTIC}, "scene"),
                           lid=("assignMaterial", {"paths": LID, "material": PAINT}, "box"))
        for file in ("mixed.optree", "cooked.json", "cooked.optree"):
            if file.endswith(".optree"):
                self.ok("convert", file.replace(".optree", ".json"), file)
            with self.subTest(file):
                self.assertEqual({**expected, "file": file}, self.told(file, LID))
        for file in ("mixed.json", "cooked.json"):
            done = self.run_raw("material", "/dev/stdin", LID, "--json", input=(self.folder / file).read_bytes())
            self.assertEqual((0, b""), (done.returncode, done.stderr))
            self.assertEqual({**expected, "file": "/dev/stdin"}, json.loads(done.stdout))

    def test_paths_take_names_decoded_and_encoded(self):
        tree = {"a": {"material": GROUND}, "c": {"a%2Eb": {"a": {"material": CLAY}, "c": {
            "c%2Ed": {"a": {"material": PAINT}}}}}}
        self.write_document("dots.json", "static scene", tree)
        self.write_document("slash.json", "static scene", json.loads(
            json.dumps(tree).replace("c%2Ed", "c%2Fd")))
        self.write_op_tree("cooked_dots.json", scene=("scene", {"tree": tree}))
        for file, name, paths in (("dots.json", "c.d", ("/root/a.b/c.d", "/root/a%2Eb/c%2Ed/")),
                                  ("cooked_dots.json", "c.d", ("/root/a.b/c.d", "/root/a%2Eb/c%2Ed/")),
                                  ("slash.json", "c%2Fd", ("/root/a.b/c%2Fd",))):
            for path in paths:
                with self.subTest((file, path)):
                    self.assertEqual(["/root/a.b/" + name, "/root/a.b", "/root"],
                                     [part["from"] for part in self.told(file, path)["chain"]])

    def test_a_location_with_an_error_tells_it_at_the_end(self):
        tree = scene(GROUND, None, PAINT)
        tree["c"]["box"]["c"]["lid"]["a"]["errorMessage"] = "no lid"
        self.write_document("error.json", "static scene", tree)
        text, message = self.warns("material", "error.json", LID)
        self.assertIn("surface", text)
        self.assertEqual(f"error.json: 1 location with errors, the first at {LID}: no lid", message)

    def test_a_location_without_a_material(self):
        self.write("none.json", None, None, None)
        self.assertEqual(f"none.json: no material at {LID}, nor above it",
                         self.fails(5, "material", "none.json", LID))
        self.write("text.json", None, "brass", None)
        self.assertEqual(f'text.json: no material at {LID}, nor above it; the "material" of /root/box is string,'
                         " not a group", self.fails(5, "material", "text.json", LID))

    def test_a_classic_material_has_no_network(self):
        self.write("classic.json", CLAY, None, PLASTIC)
        for option in ("--network", "--dot"):
            with self.subTest(option):
                self.assertEqual(f"classic.json: no shading network at {LID}; its material is a classic one",
                                 self.fails(5, "material", "classic.json", LID, option))

    def test_a_location_that_is_not_there(self):
        self.assertEqual("mixed.json: no location /root/box/led; /root/box has 1 child, not 'led'",
                         self.fails(5, "material", "mixed.json", "/root/box/led"))

    def test_files_that_are_no_scene(self):
        self.write_document("plain.json", "attribute", {"a": 1})
        self.assertIn("holds a plain attribute", self.fails(4, "material", "plain.json", "/root"))
        self.assertIn("missing.json", self.fails(3, "material", "missing.json", "/root"))

    def test_wrong_usage(self):
        for arguments in (("mixed.json",), ("mixed.json", LID, "--network", "--flat"),
                          ("mixed.json", LID, "--flat", "--dot"), ("mixed.json", LID, "--json", "--dot")):
            with self.subTest(arguments):
                self.fails(2, "material", *arguments)
        for names in ("", "a,,b", ",a"):
            self.assertIn(f"'{names}' is no list of names",
                          self.fails(2, "material", "mixed.json", LID, "--terminals", names))

    @unittest.skipUnless(PLUGINS and MODEL.exists(), f"there is no importer, or no {MODEL}")
    def test_an_imported_model(self):
        self.ok("import", str(MODEL), "box.optree", OVSCENE_PLUGIN_PATH=PLUGINS)
        mesh = [line["path"] for line in map(json.loads, self.ok("tree", "box.optree", "--json").splitlines())
                if line["type"] == "mesh"][0]
        told = self.told("box.optree", mesh)
        self.assertEqual([("surface", "surface", mesh)],
                         [(t["name"], t["node"], t["from"]) for t in told["terminals"]])
        graph = self.drawn("box.optree", mesh)
        self.assertIn("surface\nstandard_surface", graph.labels.values())
        self.assertEqual(len(told["nodes"]) + 1, len(graph.labels))


if __name__ == "__main__":
    unittest.main()
