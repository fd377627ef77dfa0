#pragma once

#include <string>

/// A file that appears under its name with all of its content or not at all.
///
/// The content goes to a temporary file in the same folder, which takes the target's place in
/// `commit`. Without a commit it is removed: by the destructor, and when SIGHUP, SIGINT or SIGTERM
/// ends the process meanwhile. The new file has the permissions that the process's umask leaves; a
/// symbolic link stays and the file that it leads to is replaced, or made where there is none yet.
///
/// Only one may exist at a time, because signals are the whole process's affair.
class AtomicFile {
public:
    /// Creates the temporary file.
    /// @throws Failure when the target is a folder or a circle of symbolic links, or the temporary
    ///         file cannot be created
    explicit AtomicFile(const std::string& target);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Appends to the content.
    /// @throws Failure when it cannot be written, for a full disk for example
    void write(const std::string& data);

    /// Brings the content to the disk and puts it in the target's place. The last call.
    /// @throws Failure when that cannot be done; the target is then as it was
    void commit();

private:
    [[noreturn]] void fail(int error) const;

    std::string m_name;   // as the user wrote it, for messages
    std::string m_target; // with symbolic links followed
    std::string m_temporary;
    int m_descriptor = -1;
};
