// SPDX-License-Identifier: MIT
// text/disco/unita.h
//
// The drives that a person may choose from. Where the system has no letters they are assigned here:
// "C:" is the root, and each other mounted volume that a person would know takes the next letter
// in the order of the mount points, so that letters are stable while the volumes are. A volume
// that comes or goes moves the letters after its own.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace morvella {

struct Unita {
    std::string Lettera;   // "C:"
    std::string Directory; // platform path of the drive's top: a mount point, or "D:/"
    std::string Nome;      // UTF-8: what a person reads beside the letter; may be ""
    bool operator==(const Unita&) const = default;
};

/// The letter of the drive that an absolute platform path lies on; "" when it is on none.
std::string UnitaDi(const std::vector<Unita>& unita, const std::string& percorso);

/// The drives of a Linux system, from the text of its /proc/self/mountinfo. A mount may be a single
/// file of another file system; `directory` is asked only about the few that could be one, since
/// a query to a dead server can block forever.
std::vector<Unita> UnitaDaMontaggi(std::string_view mountinfo,
                                   const std::function<bool(const std::string&)>& directory);

} // namespace morvella
