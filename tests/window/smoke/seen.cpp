#include <atspi/atspi.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace {

struct Unref
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename Object>
using Ref = std::unique_ptr<Object, Unref>;

/// Takes ownership of a text allocated by the library; empty if the program does not respond.
std::string taken(gchar* text)
{
    const std::unique_ptr<gchar, decltype(&g_free)> owner(text, g_free);
    return text == nullptr ? std::string() : std::string(text);
}

constexpr int rowsAtMost = 8; ///< of a list; a query for a row takes as long as for a widget

struct NamedState
{
    AtspiStateType state;
    const char* name;
};
constexpr NamedState namedStates[] = {{ATSPI_STATE_SHOWING, "showing"}, {ATSPI_STATE_ENABLED, "enabled"},
                                      {ATSPI_STATE_FOCUSED, "focused"}, {ATSPI_STATE_FOCUSABLE, "focusable"},
                                      {ATSPI_STATE_CHECKED, "checked"}, {ATSPI_STATE_SELECTED, "selected"}};

/// Characters with the same attributes.
struct Run
{
    int start = 0;
    int end = 0;
    bool link = false;
    bool red = false;
    std::string size = {};

    bool looksLike(const Run& other) const { return link == other.link && red == other.red; }
};

/// From `offset` on; empty if the program does not respond.
Run runAt(AtspiText* text, int offset)
{
    Run run{offset, offset};
    int start = 0;
    const std::unique_ptr<GHashTable, decltype(&g_hash_table_unref)> attributes(
        atspi_text_get_attribute_run(text, offset, FALSE, &start, &run.end, nullptr), g_hash_table_unref);
    if (attributes == nullptr)
        return run;
    const auto value = [&](const char* key) {
        const auto* found = static_cast<const char*>(g_hash_table_lookup(attributes.get(), key));
        return std::string_view(found == nullptr ? "" : found);
    };
    run.link = value("underline") == "single";
    run.red = value("fg-color") == "255,0,0";
    run.size = value("size");
    return run;
}

std::string rectangle(AtspiRect* allocated)
{
    const std::unique_ptr<AtspiRect, decltype(&g_free)> rect(allocated, g_free);
    if (rect == nullptr)
        return "0 0 0 0";
    return std::to_string(rect->x) + ' ' + std::to_string(rect->y) + ' ' + std::to_string(rect->width) + ' ' +
           std::to_string(rect->height);
}

void printLine(std::string_view role, std::string_view name, std::string_view place, std::string_view states,
               std::string text = {})
{
    for (char& letter : text)
        if (letter == '\n' || letter == '\t')
            letter = ' ';
    std::cout << role << '\t' << name << '\t' << place << '\t' << states << '\t' << text << '\n';
}

void printRun(AtspiText* text, const Run& run)
{
    if (run.link || run.red)
        printLine(
            run.link ? "link" : "red", taken(atspi_text_get_text(text, run.start, run.end, nullptr)),
            rectangle(atspi_text_get_character_extents(text, run.start, ATSPI_COORD_TYPE_SCREEN, nullptr)),
            "");
}

/// The links and the red parts of a text, each at the position of its first letter, and the font size of the
/// last letters.
void printRuns(AtspiText* text)
{
    const int count = atspi_text_get_character_count(text, nullptr);
    Run before;
    while (before.end < count) {
        const Run next = runAt(text, before.end);
        if (next.end <= before.end)
            break;
        if (next.looksLike(before)) {
            before.end = next.end;
        } else {
            printRun(text, before);
            before = next;
        }
        before.size = next.size;
    }
    printRun(text, before);
    printLine("letters", before.size, rectangle(nullptr), "");
}

std::string statesOf(AtspiAccessible* object, bool& showing)
{
    const Ref<AtspiStateSet> set(atspi_accessible_get_state_set(object));
    std::string names;
    for (const auto& [state, name] : namedStates)
        if (atspi_state_set_contains(set.get(), state))
            names += (names.empty() ? "" : " ") + std::string(name);
    showing = atspi_state_set_contains(set.get(), ATSPI_STATE_SHOWING) != FALSE;
    return names;
}

/// What is visible, and also the menus of the menu bar that are not open.
void print(AtspiAccessible* object, bool inMenuBar)
{
    bool showing = false;
    const std::string states = statesOf(object, showing);
    const AtspiRole role = atspi_accessible_get_role(object, nullptr);
    if (!showing && !inMenuBar && role != ATSPI_ROLE_APPLICATION)
        return;
    const Ref<AtspiComponent> component(atspi_accessible_get_component_iface(object));
    const std::string place =
        component == nullptr
            ? rectangle(nullptr)
            : rectangle(atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr));
    const int children = atspi_accessible_get_child_count(object, nullptr);
    const Ref<AtspiText> text(atspi_accessible_get_text_iface(object));
    std::string shown;
    if (text != nullptr)
        shown = taken(atspi_text_get_text(text.get(), 0, -1, nullptr));
    else if (role == ATSPI_ROLE_LIST)
        shown = std::to_string(children);
    printLine(taken(atspi_role_get_name(role)), taken(atspi_accessible_get_name(object, nullptr)), place,
              states, shown);
    if (text != nullptr && role == ATSPI_ROLE_LABEL)
        printRuns(text.get());
    for (int i = 0; i < std::min(children, rowsAtMost); ++i)
        if (const Ref<AtspiAccessible> child(atspi_accessible_get_child_at_index(object, i, nullptr)); child)
            print(child.get(), inMenuBar || role == ATSPI_ROLE_MENU_BAR);
}

} // namespace

/// window_seen PID: prints the accessible objects of another program, one per line: role, name, position on
/// the screen (x, y, width, height; in the toolkit's pixels), states, text; separated by tabs. The text of a
/// list is its number of rows. Status 1 if no such program is known (yet).
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: window_seen PID\n";
        return 2;
    }
    const auto wanted = static_cast<guint>(std::stoul(argv[1]));
    atspi_init();
    const Ref<AtspiAccessible> desktop(atspi_get_desktop(0));
    const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int i = 0; i < count; ++i) {
        const Ref<AtspiAccessible> program(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
        if (program == nullptr || atspi_accessible_get_process_id(program.get(), nullptr) != wanted)
            continue;
        print(program.get(), false);
        return 0;
    }
    return 1;
}
