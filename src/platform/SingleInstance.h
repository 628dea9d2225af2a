/// @file
/// Whether another instance of the program runs for this user.
#pragma once

#include <QLockFile>

#include <memory>

/// Holds the mark of the running instance as long as it lives.
class SingleInstance {
public:
    /// Takes the mark in the user's runtime folder under the given name.
    explicit SingleInstance(const QString &name);

    /// True when this is the only instance. A mark left by a process that is gone does not count.
    bool IsOnly() const { return m_only; }

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_only = false;
};
