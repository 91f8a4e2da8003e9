// JSON and YAML that are made to do harm.

#include "hostile_source.h"

namespace process_test {

namespace {

std::string json(const std::string& number, const std::string& text)
{
    return "[{\"book\":1,\"chapter\":1,\"verse\":" + number + ",\"text\":\"" + text + "\"}]";
}

const std::vector<Hostile> hostileJson{
    {"DeepListsInJson", [] { return repeated("["); }, "@:1: values are nested more than 100 deep"},
    {"DeepObjectsInJson", [] { return repeated("{\"a\":"); }, "@:1: values are nested more than 100 deep"},
    {"DeepTagsInJson", [] { return json("1", "a" + repeated("<b>", 1u << 19)); }, ""},
    {"DeepNotesInJson",
     [] { return json("1", "a" + repeated("<f>", 1u << 18) + repeated("</f>", 1u << 18)); }, ""},
    {"HugeKeyInJson", [] { return "{\"" + repeated("x") + "\":1}"; }, "@:1: a string longer than 1 MiB"},
    {"ManyKeysInJson", [] { return "{\"a\":0" + numbered(",\"b", "\":0", 2000000) + "}"; },
     "@:1: more than 1000000 values"},
    {"NumberOfFourBillionInJson", [] { return json("4294967297", "a"); }, "@:1: a verse without a number"},
    {"NumberBeyondAllInJson", [] { return json("1e9999", "a"); },
     "@:1: not valid JSON: \"\":1,\"chapter\":1,\"verse\":1e9999\""},
    {"LastNumberInJson", [] { return json("65534", "a"); }, ""},
    {"EndlessVerseInJson", [] { return json("1", repeated("a")); }, "@:1: a string longer than 1 MiB"},
    {"LongVerseInJson", [] { return json("1", std::string(1u << 20, 'a')); },
     "Gen 1:1: the verse has 1048576 bytes; the limit is 65535"},
    {"ManyValuesInJson", [] { return "[[]" + repeated(",[]", 60u << 20) + "]"; },
     "@:1: more than 1000000 values"},
    {"EmptyVersesInJson",
     [] { return "[{\"name\":\"Gen\",\"chapters\":[[\"\"" + repeated(",\"\"", 2u << 20) + "]]}]"; },
     "the source contains no text"},
    {"PathAsBookInJson", [] { return std::string("[{\"name\":\"../../x\",\"chapters\":[[\"a\"]]}]"); },
     "@:1: \"../../x\" is not a known book: write its number from 1 to 66, its English name or its OSIS id, "
     "such as Gen"},
};

/// YAML of a book with these verses.
std::string yaml(const std::string& verses) { return "name: Gen\nchapters:\n-\n" + verses; }

/// Lists each of which refers to the one before it many times.
std::string aliases()
{
    std::string all = "a0: &a0 [x]\n";
    for (unsigned int i = 1; i < 10; ++i)
        all += "a" + std::to_string(i) + ": &a" + std::to_string(i) + " [" +
               repeated("*a" + std::to_string(i - 1) + ", ", 100) + "x]\n";
    return all + "books: *a9\n";
}

const std::string referring = ": anchors, aliases and tags of YAML are not read";

const std::vector<Hostile> hostileYaml{
    {"DeepListsInYaml", [] { return "books:\n- " + repeated("["); },
     "@:2: values are nested more than 100 deep"},
    {"DeepBlocksInYaml", [] { return "books:\n" + repeated("- "); },
     "@:2: values are nested more than 100 deep"},
    {"DeepObjectsInYaml", [] { return "books: " + repeated("{a: "); },
     "@:1: values are nested more than 100 deep"},
    {"AliasesInYaml", [] { return "books:\n" + aliases(); }, "@:2" + referring},
    {"TagInYaml", [] { return std::string("books: !!python/object:os.system x\n"); }, "@:1" + referring},
    {"ManyKeysInYaml", [] { return "books: x\n" + numbered("b", ": 0\n", 1100000); },
     "@:1000000: more than 1000000 values"},
    {"ManyValuesInYaml", [] { return "books: [a" + repeated(",a") + "]"; }, "@:1: more than 1000000 values"},
    {"HugeKeyInYaml", [] { return "books: x\n? " + repeated("x") + "\n: 1\n"; },
     "@:2: a string longer than 1 MiB"},
    {"EndlessVerseInYaml", [] { return yaml("  - " + repeated("a") + '\n'); },
     "@:4: a string longer than 1 MiB"},
    {"LongVerseInYaml", [] { return yaml("  - |\n" + repeated("   a\n", 1u << 20)); },
     "Gen 1:1: the verse has 419431 bytes; the limit is 65535"},
    {"EndlessCommentInYaml", [] { return "books:\n#" + repeated("x") + "\n- [Gen, 1, 1, a]\n"; }, ""},
    {"ManyDocumentsInYaml", [] { return "books: x\n" + repeated("---\n"); },
     "@:2: more than one document in the file"},
};

INSTANTIATE_TEST_SUITE_P(Json, HostileSource, testing::ValuesIn(hostileJson), nameOfHostile);
INSTANTIATE_TEST_SUITE_P(Yaml, HostileSource, testing::ValuesIn(hostileYaml), nameOfHostile);

} // namespace

} // namespace process_test
