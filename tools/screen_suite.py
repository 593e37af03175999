"""Plays the scenes of tools/screens on the present display and writes the results.

    screen_suite.py [--results FILE] [--only NAME] [FOLDER]

Each scene leaves its pictures in a folder of its own (out/screens/<scene> by default). The results have
the form in which the test programs write theirs.
"""

import argparse
import importlib
import os
import shutil
import sys
import time
import traceback
import xml.etree.ElementTree as ElementTree

from screen_bar import ROOT, Bar, forget_earlier_sessions

SCENES = (
    "first_run",
    "order_types",
    "tabs_in_a_slide",
    "prices",
    "quotes",
    "good_till_date",
    "quantity",
    "calculator",
    "hot_keys",
    "lookup",
    "ask_to_connect",
    "profile_settings",
    "profile_editor",
    "refused_close",
    "restart",
    "two_hosts",
    "hasty",
    "press",
)


class Stage:
    """What a scene plays on: a folder, and hosts that end with the scene."""

    def __init__(self, folder):
        self.folder = folder
        self.settings = os.path.join(folder, "settings")
        self._bars = []
        shutil.rmtree(folder, ignore_errors=True)
        os.makedirs(folder)

    def open(self, name="", *options, environment=None):
        """A host with quotes that stand still; name tells the files of several hosts apart."""
        folder = os.path.join(self.folder, name)
        os.makedirs(folder, exist_ok=True)
        bar = Bar(folder, "--frozen-quotes", "--seed", "7", "--settings", self.settings, *options,
                  environment=environment)
        self._bars.append(bar)
        return bar

    def end(self):
        for bar in self._bars:
            bar.stop()


def play(name, folder):
    """None, or what went wrong."""
    forget_earlier_sessions()
    stage = Stage(folder)
    try:
        importlib.import_module(f"screens.{name}").play(stage)
        return None
    except Exception:  # whatever it was, the other scenes are played
        return traceback.format_exc()
    finally:
        stage.end()


def write_results(path, outcomes):
    suite = ElementTree.Element("testsuite", name="screen", tests=str(len(outcomes)),
                                failures=str(sum(1 for one in outcomes if one[1])))
    for name, problem, seconds in outcomes:
        case = ElementTree.SubElement(suite, "testcase", name=name, classname="screen", status="run",
                                      time=f"{seconds:.1f}")
        if problem:
            ElementTree.SubElement(case, "failure", message=problem.splitlines()[-1]).text = problem
    root = ElementTree.Element("testsuites")
    root.append(suite)
    ElementTree.ElementTree(root).write(path, encoding="unicode", xml_declaration=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--results")
    parser.add_argument("--only", choices=SCENES)
    parser.add_argument("folder", nargs="?", default=os.path.join(ROOT, "out", "screens"))
    arguments = parser.parse_args()
    outcomes = []
    for name in [arguments.only] if arguments.only else SCENES:
        start = time.monotonic()
        problem = play(name, os.path.join(os.path.abspath(arguments.folder), name))
        outcomes.append((name, problem, time.monotonic() - start))
        print(f"{name:<18} {'FAILED' if problem else 'ok':<7} {outcomes[-1][2]:5.1f} s", flush=True)
        if problem:
            print(problem, flush=True)
    if arguments.results:
        write_results(arguments.results, outcomes)
    return 1 if any(problem for _, problem, _ in outcomes) else 0


if __name__ == "__main__":
    sys.exit(main())
