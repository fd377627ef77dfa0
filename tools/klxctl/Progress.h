#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/// Tells people at a terminal what long work is at: one line on standard error that appears when
/// the work has taken longer than their patience, and is gone when this object is. Anywhere else
/// it does nothing.
class Progress {
public:
    explicit Progress(std::chrono::milliseconds patience = std::chrono::milliseconds(500));
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// The work that is at hand, such as "reading 4 of 122".
    void tell(const std::string& work);

private:
    void show();

    const std::chrono::milliseconds m_patience;
    const bool m_isShown;
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_end;
    std::string m_work;
    bool m_isOver = false;
    std::thread m_thread;
};
