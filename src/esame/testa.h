// SPDX-License-Identifier: MIT
// esame/testa.h
//
// The head of a form, class or control: VERSION, then objects within Begin and End. It is read
// line by line, for its lines are no code: "Tab(0).Control(0) = 1" or "Shortcut = ^N".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "esame/eventi.h"

namespace morvella::esame {

struct Testa {
    std::size_t Fine = 0;   // offset of the first line of code
    std::uint32_t Riga = 1; // and its number
};

/// Reads the head, if there is one, and appends its findings.
Testa LeggiTesta(std::string_view bytes, std::vector<Reperto>& reperti);

} // namespace morvella::esame
