// The response times of the window, until it is painted, compared with those of the toolkit and of the engine
// alone.

#include "application.h"
#include "bench_module.h"
#include "bggui.h"
#include "chapter_document.h"
#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "list_box.h"
#include "measured.h"
#include "paint_watch.h"
#include "tab_bar.h"
#include "temp_folder.h"
#include "tolvo_bible.h"
#include "window_folder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Kedrin::Tolvo;
using Watch = PaintWatch<qt3::Application>;

Watch& watch() { return dynamic_cast<Watch&>(*qApp); }

/// Two translations.
const std::string& windowFolder()
{
    static const test_support::TempFolder folder;
    static const std::string path = [] {
        writeWindowFolder(folder.path());
        return folder.path().string();
    }();
    return path;
}

std::string moduleFolder(const char* name) { return windowFolder() + "/modules/bibles/" + name; }

/// A window with both translations open.
BibleForm& form()
{
    static BibleForm* const made = [] {
        ut::set_application_dirPath(windowFolder().c_str());
        auto* window = new BibleForm; // not deleted: it has to outlive the application
        window->menuTranslations_activated(1);
        watch().showPainted(*window, window->textBrowser->viewport());
        checkAnswer(window->tabsText->count() == 2, "form");
        return window;
    }();
    return *made;
}

/// Does nothing if the tab is already current.
void switchTo(int tabIndex)
{
    if (form().tabsText->currentIndex() == tabIndex)
        return;
    form().tabsText->setCurrentTab(form().tabsText->idAt(tabIndex));
    watch().awaitPaint(form().textBrowser->viewport());
}

void switch_translation(benchmark::State& state, unsigned int book, int versesCount)
{
    switchTo(0);
    form().goToRef(CRef(book, 0, 0));
    switchTo(1);
    checkAnswer(form().textBrowser->document()->blockCount() == versesCount &&
                    form().textBrowser->toPlainText().contains(u'!') &&
                    !form().textBrowser->toPlainText().contains(u'.'),
                "switch_translation");
    int tabIndex = 1;
    measure(state, [&] { switchTo(tabIndex = 1 - tabIndex); });
}
BENCHMARK_CAPTURE(switch_translation, verses_26, 0, 26)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(switch_translation, verses_176, CBenchModule::longChapterBook, 176)
    ->Unit(benchmark::kMillisecond);

/// The lower bound for a switch: the page of either translation in a plain view of the same size.
void page_only(benchmark::State& state, unsigned int book, int versesCount)
{
    const QString pages[] = {chapterDocument(CBible(moduleFolder("a")), book, 0, 0, false),
                             chapterDocument(CBible(moduleFolder("b")), book, 0, 0, false)};
    QTextBrowser view;
    view.setFont(form().font());
    view.resize(form().textBrowser->size());
    view.setHtml(pages[1]);
    watch().showPainted(view, view.viewport());
    checkAnswer(view.document()->blockCount() == versesCount, "page_only");
    int page = 1;
    measure(state, [&] {
        view.setHtml(pages[page = 1 - page]);
        watch().awaitPaint(view.viewport());
    });
}
BENCHMARK_CAPTURE(page_only, verses_26, 0, 26)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(page_only, verses_176, CBenchModule::longChapterBook, 176)->Unit(benchmark::kMillisecond);

void open_translation(benchmark::State& state)
{
    switchTo(1);
    form().goToRef(CRef(0, 0, 0));
    for (auto _ : state) {
        state.PauseTiming();
        form().menuTranslations_activated(1);
        form().tabsText_selected(form().tabsText->idAt(0));
        watch().awaitPaint(form().textBrowser->viewport());
        state.ResumeTiming();
        form().menuTranslations_activated(1);
        watch().awaitPaint(form().textBrowser->viewport());
    }
    checkAnswer(form().tabsText->count() == 2 && form().comboSearchText->count() == CBenchModule::wordCount,
                "open_translation");
}
BENCHMARK(open_translation)->Unit(benchmark::kMillisecond);

/// The lower bound for opening: the engine's part, and the page in a plain view of the same size.
void open_only(benchmark::State& state)
{
    const QString page = chapterDocument(CBible(moduleFolder("b")), 0, 0, 0, false);
    QTextBrowser view;
    view.setFont(form().font());
    view.resize(form().textBrowser->size());
    watch().showPainted(view, view.viewport());
    for (auto _ : state) {
        const CBible bible(moduleFolder("b"));
        checkAnswer(bible.wordsCount() == CBenchModule::wordCount, "open_only");
        view.setHtml(page);
        watch().awaitPaint(view.viewport());
    }
}
BENCHMARK(open_only)->Unit(benchmark::kMillisecond);

void list_hits(benchmark::State& state)
{
    switchTo(1);
    switchTo(0);
    form().checkPartialWord->setChecked(true);
    form().comboSearchText->setCurrentText(QStringLiteral("."));
    for (auto _ : state) {
        form().btnSearch_pressed();
        watch().awaitPaint(form().listSearchResults->viewport());
    }
    checkAnswer(form().listSearchResults->model()->rowCount() == CBenchModule::verseCount, "list_hits");
}
BENCHMARK(list_hits)->Unit(benchmark::kMillisecond);

/// The lower bound for listing hits: the search.
void search_only(benchmark::State& state)
{
    const CBible bible(moduleFolder("a"));
    std::vector<CRef> hits;
    for (auto _ : state)
        bible.search(".", false, false, hits);
    checkAnswer(hits.size() == CBenchModule::verseCount, "search_only");
}
BENCHMARK(search_only)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Watch application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
