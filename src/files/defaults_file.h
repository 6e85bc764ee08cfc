#pragma once

#include <filesystem>

#include "model/session.h"

namespace kalvex {

inline constexpr const char* kDefaultsFileName = "Defaults.TXT";

// Reads ChartAspect, DefaultCapacitorQ and DefaultInductorQ, one number a line
// (commas also separate them). A missing file, a number that does not read or
// fewer than three numbers give all three defaults (0.75, 1000, 200), silently.
void ReadDefaults(Session& session, const std::filesystem::path& path = kDefaultsFileName);

// Writes the three settings as bare numbers. Returns false when the file cannot
// be written; the program carries on with the settings it has.
bool WriteDefaults(const Session& session, const std::filesystem::path& path = kDefaultsFileName);

}  // namespace kalvex
