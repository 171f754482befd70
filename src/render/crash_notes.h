// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/look.h"

#include <filesystem>
#include <string_view>

/// What was drawn when a fault, mostly one of the graphics driver, ended the program by a signal is noted in
/// a file. A pattern and a dither that were drawn at two such ends, with no proper end in between, are
/// refused from then on: a driver that dies of a look cannot keep the user from choosing another. With
/// another driver, or another version of the program, they are tried again.
namespace tessel::crash_notes {

/// Notes from now on what a fault ends, one line a time at the end of the file, and reads what is noted
/// there. \param file made when there is something to note, its folder at once \param version of the program
void keep(const std::filesystem::path& file, std::string_view version);

/// With whom we draw. Before it is known nothing is noted or refused.
/// \param renderer,version as OpenGL calls them
void setDriver(std::string_view renderer, std::string_view version);

/// Tells what this thread draws from now on. Costs next to nothing.
void setDrawn(const Look& look);

/// \throws DrawingError if what the look is made of has ended the program twice
void check(const Look& look);

/// At a proper end: what has happened only once was an accident.
void forgetAccidents();

} // namespace tessel::crash_notes
