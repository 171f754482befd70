// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>

namespace tessel {

/// Lets the calling thread work only when nobody who is waited for has something to do.
void lowerThreadPriority();

/// Ends the program after that time at the latest, as if all were well: whatever its threads still wait for,
/// a disk that does not answer or a photo that takes long.
void endWithin(std::chrono::milliseconds time);

/// Lets threads share what memory they keep for later, where each would keep its own: shaders are compiled on
/// several, and each leaves many small gaps. To be called before there are any.
void shareUnusedMemory();

/// Has a software renderer that begins from now on draw on the thread that asks it to. Else it has a thread
/// for each processor and wakes them all for each pass, of which a frame of a wallpaper has a few small ones.
/// To be called before there are other threads.
void beginDrawingOnCaller();

/// Those that begin from now on, here and in programs that are started, have their threads.
void endDrawingOnCaller();

/// Gives memory back to the system that was freed but is kept for later.
void releaseUnusedMemory();

/// Lets go of the pages of code that were needed once: to start, to compile shaders, to show an editor. What
/// is needed again comes back from the system's cache as it is used.
void releaseUnusedCode();

} // namespace tessel
