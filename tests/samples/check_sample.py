"""Makes the sample scene into a temporary folder and compares it with the one that is kept.

Usage: check_sample.py ROOT. Exits with 1 where they differ.
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path


def main():
    samples = Path(sys.argv[1]) / "samples"
    with tempfile.TemporaryDirectory() as folder:
        for program in samples.glob("*.py"):
            shutil.copy(program, folder)
        subprocess.run([sys.executable, "-B", str(Path(folder) / "make_sample.py")], check=True)
        made = (Path(folder) / "car" / "car.gltf").read_bytes()
    if made != (samples / "car" / "car.gltf").read_bytes():
        print("samples/car/car.gltf is not what samples/make_sample.py makes: run it again")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
