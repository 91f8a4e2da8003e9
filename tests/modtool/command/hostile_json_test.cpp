// JSON that is made to do harm.

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

INSTANTIATE_TEST_SUITE_P(Json, HostileSource, testing::ValuesIn(hostileJson), nameOfHostile);

} // namespace

} // namespace process_test
