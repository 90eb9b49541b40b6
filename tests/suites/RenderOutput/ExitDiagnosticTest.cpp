// SPDX-License-Identifier: Apache-2.0
// What the library tells of handles of cameras when the process ends. Each case is a process of its
// own, whose error stream is looked at.
#include "support/RenderOutputTest.h"

#include <cstdlib>

using OvLoggingHost::LogLevel;
using testing::AllOf;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

namespace {

/// How a process uses cameras before it ends.
struct Use {
    LogLevel level = LogLevel::Debug;
    int made = 0;      ///< Handles of a camera.
    int released = 0;  ///< Of those.
    int retained = 0;  ///< The first one, by so many references more.
    bool looksInVain = false;
};

class ExitDiagnostic : public ovtest::RenderOutputTest {
protected:
    ExitDiagnostic() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    /// Handles that are left over stay within reach, so that no leak is told of.
    [[noreturn]] void end(const Use& use) {
        static auto* const left = new std::vector<CameraInfoStruct*>();
        OvLoggingHost::setLogSink({});
        OvLoggingHost::setLevel("RenderOutputUtils", use.level);
        const Handle root = at(cameraScene());
        for (int i = 0; i < use.made; ++i) {
            left->push_back(table.getCameraInfo(root, kCamera));
        }
        for (int i = 0; i < use.released; ++i) {
            table.releaseCameraInfo(left->back());
            left->pop_back();
        }
        for (int i = 0; i < use.retained; ++i) {
            table.retainCameraInfo(left->front());
        }
        if (use.looksInVain) {
            left->push_back(table.getCameraInfo(root, "/root/none"));
            table.releaseCameraInfo(left->back());
        }
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
    }

    static Use made(int count) {
        Use use;
        use.made = count;
        return use;
    }

    static testing::Matcher<const std::string&> tells(const std::string& shown) {
        return AllOf(HasSubstr(" RenderOutputUtils: Final CameraInfoStruct count: " + shown + " ("),
                     MatchesRegex("[^\n]+ debug RenderOutputUtils: [^\n]+ "
                                  "\\(src/Utils/OvRenderOutputUtilsHost/"
                                  "[A-Za-z]+\\.cpp:[1-9][0-9]*\\)\n"));
    }
};

}  // namespace

// An oddity: the count is told as one character, by its low eight bits.
TEST_F(ExitDiagnostic, TellsTheCountOfHandlesAsOneCharacter) {
    EXPECT_EXIT(end(made(65)), ExitedWithCode(0), tells("A"));
    EXPECT_EXIT(end(made(126)), ExitedWithCode(0), tells("~"));
}

TEST_F(ExitDiagnostic, TellsTheLowEightBitsOfTheCount) {
    EXPECT_EXIT(end(made(321)), ExitedWithCode(0), tells("A"));
    EXPECT_EXIT(end(made(1)), ExitedWithCode(0), tells("\\x01"));
    EXPECT_EXIT(end(made(200)), ExitedWithCode(0), tells("\\xC8"));
}

TEST_F(ExitDiagnostic, EndsAtTheBlankWhenEveryHandleWasReleased) {
    Use use = made(3);
    use.released = 3;
    EXPECT_EXIT(end(use), ExitedWithCode(0), tells(""));
}

TEST_F(ExitDiagnostic, EndsAtTheBlankAlsoWhen256HandlesAreLeft) {
    EXPECT_EXIT(end(made(256)), ExitedWithCode(0), tells(""));
}

TEST_F(ExitDiagnostic, CountsHandlesAndNotTheirReferences) {
    Use use = made(70);
    use.released = 5;
    use.retained = 30;
    EXPECT_EXIT(end(use), ExitedWithCode(0), tells("A"));
}

TEST_F(ExitDiagnostic, CountsNoHandleForACameraThatIsNotThere) {
    Use use = made(65);
    use.looksInVain = true;
    EXPECT_EXIT(end(use), ExitedWithCode(0), tells("A"));
}

TEST_F(ExitDiagnostic, TellsNothingWhenNoHandleWasEverMade) {
    Use use;
    EXPECT_EXIT(end(use), ExitedWithCode(0), IsEmpty());
    use.looksInVain = true;
    EXPECT_EXIT(end(use), ExitedWithCode(0), IsEmpty());
}

TEST_F(ExitDiagnostic, TellsNothingWhenTheLevelIsHigher) {
    Use use = made(65);
    for (const LogLevel level : {LogLevel::Info, LogLevel::Warn, LogLevel::Error, LogLevel::Off}) {
        use.level = level;
        EXPECT_EXIT(end(use), ExitedWithCode(0), IsEmpty());
    }
}
