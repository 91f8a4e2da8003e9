#pragma once

#include "build_report.h"
#include "progress.h"
#include "source_bible.h"
#include "sword_texts.h"
#include "text_source.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string>

namespace Kedrin::Add {

/// What is known of a text before it is added.
struct TextPreview
{
    ModTool::SourceBible bible;
    std::string name; ///< of the module, where the user does not choose another
    QString title;    ///< one line that fits into a module
    QString contents; ///< "66 books, 1189 chapters, 31102 verses"
    QStringList
        samples; ///< verses with their positions, one line each: the first, one in the middle, the last
    QStringList changes; ///< sentences on what is left out, replaced or joined; never empty
    std::shared_ptr<ModTool::IFetchedText> fetched; ///< of a repository; keeps it once the module is added
    QString report;                                 ///< the same in full, lines in columns
};

/// Reads a text, after fetching it where it is in a repository, and prepares its module without writing anything.
/// @throws CBuildError, CNotFound, CPartMissing  what fetch(), readSource() and prepareModule() throw
TextPreview readPreview(const TextSource& source, const ModTool::ISword& sword, ModTool::IProgress& progress);

/// What becomes of a text, in sentences; one that says so where all of it is kept.
QStringList changesOf(const ModTool::BuildReport& report);

} // namespace Kedrin::Add
