// SPDX-License-Identifier: MIT
// tests/sostegno/alberi.h
//
// Trees of files: read, and compared byte for byte. And what the directories of tests/casi hold,
// for whoever runs them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace morvella::prove {

using Albero = std::map<std::string, std::string>; // path below a directory, bytes

/// The lines of a small file, without empty ones; none when there is no such file.
std::vector<std::string> Righe(const std::filesystem::path& file);
Albero LeggiAlbero(const std::filesystem::path& radice);

/// The pictures of the pages, as the pages spell them.
inline constexpr const char* Figure[] = {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"};

/// What a run below `qui` wrote, as a case keeps it: pages name "\\caso" and not the place, and
/// pictures are left out.
void SenzaLuogo(Albero& albero, const std::filesystem::path& qui);

/// Where two trees differ, one text for each file: its line and offset, and both lines.
std::vector<std::string> Differenze(const Albero& atteso, const Albero& avuto);

/// The cases below `casi`, which is tests/casi: every directory of a subsystem's, sorted.
std::vector<std::filesystem::path> Casi(const std::filesystem::path& casi);
/// The command of a case: its first option, or "riordina" where that is no command.
std::string ComandoDiCaso(const std::filesystem::path& caso);
/// The work directory that a case expects. Its atteso/ keeps what is the case's own; what every
/// run leaves alike is added here, where atteso/ does not hold it itself: the marker OK.LOG, the
/// project file's copy (documenta makes none), and for X.frm, X.bas or X.cls the same text as
/// X.txt. Where the project brings a work directory, atteso/ holds the whole.
Albero AttesoDiCaso(const std::filesystem::path& caso, const std::filesystem::path& radice);

/// A fresh copy of a case's project in `qui`/progetto, with the pictures in `qui`, which is where
/// the program lies. Gives the project file. `radice` is the repository.
std::filesystem::path PreparaCaso(const std::filesystem::path& caso, const std::filesystem::path& qui,
                                  const std::filesystem::path& radice);
/// Where the case's project comes from: directories laid one over the other, the last on top.
std::vector<std::filesystem::path> ProgettoDiCaso(const std::filesystem::path& caso,
                                                  const std::filesystem::path& radice);
/// The files of a case's project.
Albero SorgentiDiCaso(const std::filesystem::path& caso, const std::filesystem::path& radice);

} // namespace morvella::prove
