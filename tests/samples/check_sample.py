"""Makes the sample scenes into a temporary folder and compares them with those that are kept.

Usage: check_sample.py ROOT. Exits with 1 where they differ.
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SCENES = {"make_sample.py": ["car/car.gltf"],
          "make_radio.py": ["radio/red.gltf", "radio/blue.gltf"]}


def differing(samples, folder, program):
    """The scenes of a program that are not what it makes."""
    subprocess.run([sys.executable, "-B", str(folder / program)], check=True)
    return [scene for scene in SCENES[program]
            if (folder / scene).read_bytes() != (samples / scene).read_bytes()]


def main():
    samples = Path(sys.argv[1]) / "samples"
    faults = 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for program in samples.glob("*.py"):
            shutil.copy(program, folder)
        for program in SCENES:
            for scene in differing(samples, folder, program):
                print(f"samples/{scene} is not what samples/{program} makes: run it again")
                faults += 1
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
