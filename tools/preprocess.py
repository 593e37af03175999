"""Prints the preprocessed text of one source, with the command of the compilation database."""
import json
import os
import shlex
import subprocess
import sys

database, wanted = sys.argv[1], os.path.abspath(sys.argv[2])
for entry in json.load(open(database)):
    if os.path.abspath(os.path.join(entry["directory"], entry["file"])) == wanted:
        words = shlex.split(entry["command"])
        if os.path.basename(words[0]) == "ccache":
            words = words[1:]
        output = words.index("-o")
        words = words[:output] + words[output + 2 :] + ["-E", "-P"]
        words.remove("-c")
        sys.exit(subprocess.run(words, cwd=entry["directory"], check=False).returncode)
sys.exit(f"{wanted} is not compiled")
