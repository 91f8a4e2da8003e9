#pragma once

#include "varied_text.h"

#include <string>
#include <vector>

namespace varied_test {

struct Item;

/// A value of JSON or YAML.
struct Value
{
    enum class Kind
    {
        string,
        number,
        list,
        map
    };

    static Value text(const std::string& content);
    static Value number(unsigned int value);
    static Value list();
    /// @param mayBeShuffled  whether the order of its keys does not matter
    static Value map(bool mayBeShuffled);

    Value& add(Value item);
    Value& add(const std::string& key, Value item);

    Kind kind;
    std::string content; ///< of a string or number
    std::vector<Item> items;
    bool mayBeShuffled;
};

struct Item
{
    std::string key; ///< "" in a list
    Value value;
};

/// The text in one of the structures of doc/formats/json.md.
/// @param hasRoot  the root is a map with the key `books`
Value structured(const Text& text, bool hasRoot, CRandom& random);

} // namespace varied_test
