#ifndef ZELMORA_TESTS_SUPPORT_ORDINARYUSER_H
#define ZELMORA_TESTS_SUPPORT_ORDINARYUSER_H

#include <QtGlobal>

#include <grp.h>
#include <unistd.h>
#include <vector>

/// As long as it lives, a process of root's has the rights of an ordinary user, who belongs to one further group. Any
/// other process stays what it is.
class OrdinaryUser {
public:
    static const uid_t user = 1234;
    static const gid_t furtherGroup = 2345;

    OrdinaryUser()
        : wasRoot(geteuid() == 0)
        , groups(static_cast<std::size_t>(getgroups(0, nullptr)))
    {
        const gid_t further = furtherGroup;
        if (getgroups(static_cast<int>(groups.size()), groups.data()) < 0)
            qFatal("The groups can't be read.");
        if (wasRoot && (setgroups(1, &further) != 0 || setresgid(user, user, 0) != 0 || setresuid(user, user, 0) != 0))
            qFatal("Root can't become an ordinary user.");
    }

    ~OrdinaryUser()
    {
        if (wasRoot
            && (setresuid(0, 0, 0) != 0 || setresgid(0, 0, 0) != 0 || setgroups(groups.size(), groups.data()) != 0))
            qFatal("An ordinary user can't become root again.");
    }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    const bool wasRoot;
    std::vector<gid_t> groups;
};

#endif
