"""The version is that of the libraries; a wheel that holds them is one for this
kind of machine, and for every Python."""

import os
import pathlib

from setuptools import setup

try:
    from wheel.bdist_wheel import bdist_wheel
except ImportError:  # newer ones have it themselves
    from setuptools.command.bdist_wheel import bdist_wheel

HERE = pathlib.Path(__file__).resolve().parent
HAS_LIBRARY = any((HERE / "zeldebugdialog").glob("*.so.*"))


class Wheel(bdist_wheel):
    def finalize_options(self):
        super().finalize_options()
        self.root_is_pure = not HAS_LIBRARY

    def get_tag(self):
        platform = super().get_tag()[2]
        return "py3", "none", platform


setup(version=os.environ["ZELDEBUGDIALOG_VERSION"], cmdclass={"bdist_wheel": Wheel})
