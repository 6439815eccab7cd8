#include <gtest/gtest.h>

#include "receiver/LineSplitter.h"

namespace korvel { namespace {

/// All whole lines; "<long>" for each that is dropped.
std::vector<std::string> takeLines(LineSplitter& splitter, std::size_t longest = 159) {
    std::vector<char> out(longest + 1);
    std::vector<std::string> lines;
    int length = 0;
    while ((length = splitter.readLine(out)) != LineSplitter::kNoLine)
        lines.emplace_back(length == LineSplitter::kLineTooLong ? "<long>" : out.data());
    return lines;
}

TEST(LineSplitter, CutsLinesOutOfChunks) {
    const std::string longLine(200, 'x');
    const std::string flood(1100, 'x');
    const struct {
        const char* what;
        std::vector<std::string> chunks, lines;
    } cases[] = {
        {"lines in one chunk", {"$A,1\r\n$B,2\r\n"}, {"$A,1", "$B,2"}},
        {"a line in pieces", {"$A", ",1", "\r", "\n"}, {"$A,1"}},
        {"empty lines", {"\r\n\r\n$A\r\n"}, {"", "", "$A"}},
        {"CR or LF alone ends no line", {"$A\r$B\n$C\r\n"}, {"$A\r$B\n$C"}},
        {"the longest line", {std::string(159, 'y') + "\r\n"}, {std::string(159, 'y')}},
        {"one too long", {std::string(160, 'y') + "\r\n$A\r\n"}, {"<long>", "$A"}},
        {"far too long", {longLine + "\r\n$A\r\n"}, {"<long>", "$A"}},
        {"an overflow drops up to the next line", {flood, "tail\r\n$A\r\n"}, {"$A"}},
        {"its end in two chunks", {flood, "tail\r", "\n$A\r\n"}, {"$A"}},
        {"a second CR before the LF", {flood, "tail\r", "\r\n$A\r\n"}, {"$A"}},
        {"no LF after the CR", {flood, "tail\r", "$B\r\n$A\r\n"}, {"$A"}},
        {"the match starts again at the overflow", {std::string(1023, 'x') + "\r", "\n$B\r\n$A\r\n"}, {"$A"}},
        {"an exactly full buffer is none", {std::string(1022, 'x'), "\r\n", "$A\r\n"}, {"<long>", "$A"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        LineSplitter splitter;
        std::vector<std::string> lines;
        for (const std::string& chunk : c.chunks) {
            splitter.append(chunk);
            for (std::string& line : takeLines(splitter)) lines.push_back(std::move(line));
        }
        EXPECT_EQ(lines, c.lines);
        EXPECT_FALSE(splitter.isResyncing());
    }
}

TEST(LineSplitter, OverflowKeepsWhatFollowsTheDelimiterAndHasAllRoomUntilThen) {
    LineSplitter splitter;
    splitter.append(std::string(1000, 'x'));
    EXPECT_EQ(splitter.room(), 24U);
    splitter.append(std::string(25, 'x'));
    EXPECT_TRUE(splitter.isResyncing());
    EXPECT_EQ(splitter.room(), LineSplitter::kCapacity);
    splitter.append("xx\r\nrest");
    EXPECT_FALSE(splitter.isResyncing());
    EXPECT_EQ(splitter.buffered(), 4U);
    splitter.append(" of it\r\n");
    EXPECT_EQ(takeLines(splitter), std::vector<std::string>{"rest of it"});
    splitter.append(std::string(1100, 'x'));
    splitter.clear();
    splitter.append("$A\r\n");
    EXPECT_EQ(takeLines(splitter), std::vector<std::string>{"$A"}) << "the overflow is forgotten as well";
}

TEST(LineSplitter, OtherDelimiters) {
    LineSplitter splitter;
    splitter.setDelimiter("aab");
    splitter.append("1aab2aaab3");
    EXPECT_EQ(takeLines(splitter), (std::vector<std::string>{"1", "2a"}));

    splitter.clear();
    splitter.append(std::string(1020, 'x'));
    splitter.append("xxxxxaaa");  // overflows; of "aaab" the last three are the delimiter
    splitter.append("b4aab");
    EXPECT_EQ(takeLines(splitter), std::vector<std::string>{"4"});

    splitter.clear();
    splitter.setDelimiter("");
    splitter.append("bytes\r\n");
    EXPECT_EQ(takeLines(splitter, 4), (std::vector<std::string>{"byte", "s\r\n"}));
}

}}  // namespace korvel
