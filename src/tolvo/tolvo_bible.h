#pragma once

/// The engine: everything a program needs to read installed translations. Link the static library `tolvo` and
/// Qt Core; where it is installed, find_package(tolvo) gives tolvo::tolvo, and pkg-config knows it as tolvo.
///
///     Kedrin::Tolvo::CBibleModules modules("/usr/lib/kedrin/modules/bibles");
///     std::unique_ptr<const Kedrin::Tolvo::CBible> bible(modules.loadBible(0));
///     std::string verse = (*bible)[Kedrin::Tolvo::CRef(0, 0, 0, false)];   // Windows-1251
///
/// Books, chapters, verses and verse numbers count from 0. Every text is Windows-1251; file names and the
/// paths in messages are native bytes. No class is thread-safe. Each operation documents the exceptions it
/// throws; an exception of another type ends the program.

#include "file_vector.h"
#include "tolvo_bible/bible.h"
#include "tolvo_bible/bible_info.h"
#include "tolvo_bible/bible_modules.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/diff.h"
#include "tolvo_bible/folder_name.h"
#include "tolvo_bible/text_scan.h"
#include "tolvo_bible/titles.h"
#include "tolvo_bible/word_list.h"
#include "tolvo_ref.h"
#include "ut_utils.h"
