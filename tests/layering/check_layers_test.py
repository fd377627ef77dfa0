#!/usr/bin/env python3
"""Tests of check_layers.py: each breach is planted in a small tree of its own."""

import pathlib
import tempfile
import unittest

import check_layers

SOUND_TREE = {
    "platform/include/vconf.h": "#include <stdbool.h>\n",
    "platform/host/store/Store.h": "#include <lmdb.h>\n",
    "platform/host/Host.cpp": '#include "store/Store.h"\n#include "vconf.h"\n',
    "common/KLXExport.h": "#pragma once\n",
    "common/Exception.h": '#include "KLXExport.h"\n#include <string>\n',
    "common/Log.h": "#include <dlog.h>\ninline void log() { __dlog_print(0); }\n",
    "platform/include/dlog.h": "void __dlog_print(int);\n",
    "DeviceInfo/DeviceInfoManager.h": '#include "KLXExport.h"\n',
    "DeviceInfo/DeviceInfoManager.cpp": '#include "DeviceProperty.h"\n#include <libxml/tree.h>\n',
    "DeviceInfo/DeviceProperty.h": '#include "DeviceInfoGeneral.h"\n',
    "DeviceInfo/DeviceProperty.cpp": '#include "PropertyCatalogue.h"\n',
    "DeviceInfo/PropertyCatalogue.h": '#include "DeviceProperty.h"\n',
    "DeviceInfo/DeviceInfoGeneral.h": "#include <vconf.h>\n",
    "tools/klxctl/main.cpp":
        "#include <CLI/CLI.hpp>\n#include <DeviceInfoManager.h>\n#include <vconf.h>\n",
    "tests/fake/FakePlatform.h": "#include <map>\n",
    "tests/unit/FakeTest.cpp": '#include "FakePlatform.h"\n#include <gtest/gtest.h>\n',
    "cmake/public-headers.txt":
        "DeviceInfo/DeviceInfoManager.h\ncommon/KLXExport.h\ncommon/Exception.h\n",
}


def breaches_of(changes):
    with tempfile.TemporaryDirectory() as folder:
        for path, text in {**SOUND_TREE, **changes}.items():
            file = pathlib.Path(folder, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        return check_layers.Tree(folder).check()


class CheckLayers(unittest.TestCase):
    def expect_breach(self, path, text, *words):
        breaches = breaches_of({path: text})
        self.assertEqual(len(breaches), 1, breaches)
        self.assertTrue(breaches[0].startswith(path + ":"), breaches)
        for word in words:
            self.assertIn(word, breaches[0])

    def test_accepts_a_sound_tree(self):
        self.assertEqual(breaches_of({}), [])

    def test_names_the_line(self):
        self.expect_breach("common/A.cpp", "\n\n#include <Store.h>\n", "common/A.cpp:3:")

    def test_common_must_not_include_the_library(self):
        self.expect_breach("common/A.cpp", '#include "DeviceInfoManager.h"\n', "common/")

    def test_the_library_must_not_include_the_host(self):
        self.expect_breach("DeviceInfo/DeviceInfoAV.cpp", '#include "store/Store.h"\n',
                           "platform/host/store/Store.h")

    def test_a_relative_path_is_followed(self):
        self.expect_breach("DeviceInfo/DeviceInfoAV.cpp",
                           '#include "../platform/host/store/Store.h"\n', "platform/host")

    def test_the_host_must_not_include_common(self):
        self.expect_breach("platform/host/A.cpp", '#include "Exception.h"\n', "common/Exception.h")

    def test_the_fake_must_not_include_the_library(self):
        self.expect_breach("tests/fake/A.cpp", "#include <DeviceInfoManager.h>\n", "tests/fake/")

    def test_the_platform_must_not_include_common(self):
        self.expect_breach("platform/include/a.h", "#include <Exception.h>\n", "platform/include/")

    def test_a_tool_sees_public_headers_only(self):
        self.expect_breach("tools/klxctl/A.cpp", "#include <DeviceProperty.h>\n",
                           "DeviceInfo/DeviceProperty.h")

    def test_a_tool_may_know_the_settings_store_alone_of_the_platform(self):
        self.expect_breach("tools/klxctl/A.cpp", "#include <dlog.h>\n",
                           "platform/include/dlog.h")

    def test_a_backend_must_not_include_the_manager(self):
        self.expect_breach("DeviceInfo/DeviceInfoAV.cpp", '#include "DeviceInfoManager.h"\n',
                           "backends", "manager")

    def test_the_catalogue_must_not_include_the_manager(self):
        self.expect_breach("DeviceInfo/catalogue/AV.cpp", '#include "DeviceInfoManager.h"\n',
                           "catalogue", "manager")

    def test_a_file_without_a_step_is_named(self):
        self.expect_breach("DeviceInfo/Elsewhere.cpp", "", "layers.py")

    def test_a_library_stays_where_it_belongs(self):
        self.expect_breach("common/A.cpp", "#include <lmdb.h>\n", "lmdb")

    def test_an_unknown_header_is_named(self):
        self.expect_breach("common/A.cpp", "#include <curl/curl.h>\n", "curl/curl.h")

    def test_an_installed_header_takes_no_third_party_header(self):
        self.expect_breach("common/Exception.h", "#include <boost/format.hpp>\n", "boost")

    def test_an_installed_header_includes_installed_ones_only(self):
        self.expect_breach("common/Exception.h", '#include "Log.h"\n', "common/Log.h")

    def test_only_the_log_header_calls_the_log(self):
        self.expect_breach("DeviceInfo/DeviceInfoAV.cpp", "void f() { __dlog_print(0); }\n",
                           "common/Log.h")

    def test_a_test_takes_one_provider(self):
        self.expect_breach("tests/unit/A.cpp", "#include <FakePlatform.h>\n#include <Store.h>\n",
                           "two providers")

    def test_a_program_links_one_provider(self):
        self.expect_breach("tests/unit/CMakeLists.txt",
                           "target_link_libraries(a PRIVATE klx_fake\n    KLX::DeviceInfo)\n",
                           "two providers")


if __name__ == "__main__":
    unittest.main()
