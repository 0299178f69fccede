"""Builds the tree in which this recipe lies, by its own CMake files, whose config file consumers find."""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class ZyphosConan(ConanFile):
    name = "zyphos"
    description = "2D chart components for C++ desktop applications"
    license = "MIT"
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": False, "fPIC": True}
    implements = ["auto_shared_fpic"]

    @property
    def _root(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        text = load(self, os.path.join(self._root, "CMakeLists.txt"))
        self.version = re.search(r"project\(Zyphos VERSION ([0-9.]+)", text).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "Sources/*", "cmake/*"):
            copy(self, pattern, self._root, self.export_sources_folder)

    def requirements(self):
        self.requires("qt/[>=6.4 <7]", transitive_headers=True)
        self.requires("giflib/[>=5.2 <6]")
        self.requires("pugixml/[>=1.13 <2]")

    def validate(self):
        check_min_cppstd(self, 20)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        for part in ("TESTS", "EXAMPLES", "BENCHMARKS"):
            toolchain.cache_variables[f"ZYPHOS_BUILD_{part}"] = False
        toolchain.cache_variables["ZYPHOS_WERROR"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()

    def package_info(self):
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "Zyphos")]
