#pragma once

// What Folders.h tells of a program that is not portable; for Folders.cpp alone.

#include <filesystem>

namespace korvel {

/// `own`, where the program stands, if its files may be written there, else the user's
/// configuration folder for this program (created when missing).
std::filesystem::path systemProgramFolder(const std::filesystem::path& own);

/// The user's documents folder, or an empty path where there is none.
std::filesystem::path systemDocumentsFolder();

}  // namespace korvel
