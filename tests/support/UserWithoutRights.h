/// @file
/// File modes bind no superuser: a user whom they do bind, for the time of a test.
#pragma once

#include <QtGlobal>

#include <unistd.h>

/// As long as this lives, the process of a superuser acts as a user without rights; that of any other user stays as it
/// is.
class UserWithoutRights {
public:
    UserWithoutRights() : m_before(geteuid())
    {
        if (m_before == 0)
            m_bound = seteuid(65534) == 0;
    }
    ~UserWithoutRights()
    {
        if (m_before == 0 && seteuid(0) != 0)
            qFatal("The superuser's rights do not come back");
    }
    UserWithoutRights(const UserWithoutRights &) = delete;
    UserWithoutRights &operator=(const UserWithoutRights &) = delete;

    /// Whether file modes bind now; to be verified by each test.
    bool IsBound() const { return m_bound; }

private:
    uid_t m_before;
    bool m_bound = true;
};
