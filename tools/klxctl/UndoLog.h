#pragma once

#include "KnownProperties.h"
#include "SettingsDocument.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// What properties held before each step that changed some, so that the steps can be taken back.
class UndoLog {
public:
    /// @param former what is held just before the step, of each property that it writes
    void note(std::vector<Assignment> former) { m_steps.push_back(std::move(former)); }

    bool isEmpty() const { return m_steps.empty(); }

    /// Takes the steps back, the last one first: a value may belong to the mode that an earlier
    /// step has set. A value that was not readable stays as it is now.
    /// What the library cannot read is written all the same.
    /// @return what could not be put back or read again, each with the value that it holds; none
    ///         when that could not be read
    std::map<std::string, std::optional<std::string>> undo(const KnownProperties& known) const;

private:
    std::vector<std::vector<Assignment>> m_steps;
};
