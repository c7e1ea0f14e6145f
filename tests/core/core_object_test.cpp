// The built core library as an object: what it defines, what it needs, which instructions it uses.
#include <algorithm>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#ifndef ORV_CORE_OBJECT
#error "ORV_CORE_OBJECT must name the file of the core library"
#endif

namespace {

#ifdef ORV_SANITIZED // the library, not this program
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

std::vector<std::string> lines_of(const std::string& tool)
{
    const std::string command = "LC_ALL=C " + tool + " '" ORV_CORE_OBJECT "'";
    std::vector<std::string> lines;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) {
        ADD_FAILURE() << command;
        return lines;
    }
    std::string line;
    for (int c; (c = std::fgetc(pipe)) != EOF;) {
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else {
            line += static_cast<char>(c);
        }
    }
    EXPECT_EQ(pclose(pipe), 0) << command;
    return lines;
}

std::vector<std::string> words_of(const std::string& line)
{
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

/// The bracketed values of one kind of entry in the dynamic section: "0x1 (NEEDED) Shared library: [libc.so.6]".
std::vector<std::string> dynamic_entries(const std::string& kind)
{
    std::vector<std::string> values;
    for (const std::string& line : lines_of("readelf -W -d")) {
        if (line.find("(" + kind + ")") == std::string::npos) continue;
        const size_t open = line.find('['), close = line.find(']');
        if (open != std::string::npos && close != std::string::npos) {
            values.push_back(line.substr(open + 1, close - open - 1));
        } else {
            values.push_back(line);
        }
    }
    return values;
}

TEST(CoreObject, defines_the_ten_functions_and_nothing_else)
{
    // Num: Value Size Type Bind Vis Ndx Name; a version, if there were one, would be part of the name.
    std::vector<std::string> names;
    for (const std::string& line : lines_of("readelf -W --dyn-syms")) {
        const std::vector<std::string> words = words_of(line);
        if (words.size() < 8 || words[0] == "Num:" || words[6] == "UND") continue;
        names.push_back(words[7]);
        EXPECT_EQ(words[3], "FUNC") << line;
        EXPECT_EQ(words[4], "GLOBAL") << line;
        EXPECT_EQ(words[5], "DEFAULT") << line;
    }
    std::sort(names.begin(), names.end());
    const std::vector<std::string> expected = {
        "orvAlignPtr",         "orvFree",          "orvGetCpuFeatures", "orvGetEnabledCpuFeatures",
        "orvGetMaxCacheSizeB", "orvGetNumThreads", "orvMalloc",         "orvSetNumThreads",
        "ownGetFeature",       "ownGetNumThreads",
    };
    EXPECT_EQ(names, expected);
}

TEST(CoreObject, name_and_needed_objects)
{
    EXPECT_EQ(dynamic_entries("SONAME"), std::vector<std::string>{"liborvcore.so.8.2"});
    if (sanitized) GTEST_SKIP() << "the sanitizer's runtime is needed as well";
    EXPECT_EQ(dynamic_entries("NEEDED"), std::vector<std::string>{"libc.so.6"});
}

TEST(CoreObject, has_no_constructors_and_no_relocated_code)
{
    if (sanitized) GTEST_SKIP() << "the sanitizer has constructors";
    EXPECT_TRUE(dynamic_entries("INIT_ARRAY").empty());
    EXPECT_TRUE(dynamic_entries("TEXTREL").empty());
}

TEST(CoreObject, runs_on_processors_without_avx)
{
    // All instructions with a VEX or EVEX prefix have names in v, and compilers write no others of that letter.
    int instructions = 0;
    for (const std::string& line : lines_of("objdump -d --no-show-raw-insn")) {
        const std::vector<std::string> words = words_of(line); // "address: name operands"
        if (words.size() < 2 || words[0].back() != ':') continue;
        ++instructions;
        EXPECT_NE(words[1][0], 'v') << line;
    }
    EXPECT_GT(instructions, 50);
}

} // namespace
