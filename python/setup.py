"""The package as a wheel: CMake builds it with the library beside it, here it is only gathered."""

import os
import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
VERSION = re.search(r"VERSION ([\d.]+) LANGUAGES", (HERE.parent / "CMakeLists.txt").read_text()).group(1)


class Build(build_ext):
    """Builds in build/python of the source tree, or where ZR_PYTHON_BUILD says."""

    def build_extension(self, extension):
        build = pathlib.Path(os.environ.get("ZR_PYTHON_BUILD", HERE.parent / "build" / "python"))
        parts = ("TESTS", "TOOLS", "BENCHMARKS", "FUZZERS")
        subprocess.run(["cmake", "--preset", "release", "-B", build, "-DZR_BUILD_PYTHON=ON",
                        f"-DPython3_EXECUTABLE={sys.executable}", "-DZR_PYTHON_RPATH=$ORIGIN",
                        *(f"-DZR_BUILD_{part}=OFF" for part in parts)], check=True, cwd=HERE.parent)
        subprocess.run(["cmake", "--build", build, "--target", "zr_python"], check=True)
        into = pathlib.Path(self.get_ext_fullpath(extension.name)).parent.parent
        subprocess.run(["cmake", "--install", build, "--component", "python_wheel", "--prefix", into],
                       check=True)


setup(
    name="zrcreditbureau",
    version=VERSION,
    description="Credit-bureau enquiries of Australia and New Zealand, and the bureau's replies",
    python_requires=">=3.11",
    packages=[],
    ext_modules=[Extension("zrcreditbureau._native", [], py_limited_api=True)],
    cmdclass={"build_ext": Build},
    options={"bdist_wheel": {"py_limited_api": "cp311"}},
)
