#pragma once

#include "ToolRun.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

/// The tool over the real library and the host platform, with folders of its own for what they
/// keep.
class KlxctlTest : public testing::Test {
protected:
    // One property of each type.
    inline static const std::string number =
        "/General & Privacy/Accessibility/Voice Guide Settings/Speed";
    inline static const std::string flag = "/General & Privacy/Parental Settings/Parental Lock";
    inline static const std::string text =
        "/Connection/External Device Manager/Input Device Manager/Keyboard Settings/"
        "Keyboard Language";

    KlxctlTest();
    ~KlxctlTest() override;

    /// The tool, ready to run.
    virtual ToolRun tool() const;

    /// The tool on a machine that has none of what PlayedHardware.cpp can play, whatever this one
    /// has; variables bring it in.
    ToolRun onPlayedHardware() const;

    Outcome run(const std::vector<std::string>& arguments) const { return tool().run(arguments); }

    /// The one value that `get` prints for a path.
    std::string valueOf(const std::string& path) const;

    std::filesystem::path folder() const { return m_folder; }
    std::filesystem::path stateFolder() const { return m_folder / "state"; }

    /// A fresh folder for output files.
    std::filesystem::path outputFolder() const;

private:
    std::filesystem::path m_folder;
};

/// What the tool prints on a terminal.
std::string onATerminal(ToolRun tool, const std::vector<std::string>& arguments);

/// The names in a folder, in order.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

std::string contentOf(const std::filesystem::path& file);

/** Where no test may leave itself out. */
bool inContinuousIntegration();

void writeFile(const std::filesystem::path& file, const std::string& content);
