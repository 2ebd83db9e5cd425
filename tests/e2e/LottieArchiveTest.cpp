// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// .lottie files: archives of animations.
#include "Animations.h"
#include "ProgramFixture.h"

#include <gmock/gmock.h>
#include <zip.h>

using namespace animations;
using testing::AllOf;
using testing::HasSubstr;

namespace {

using Files = std::vector<std::pair<QByteArray, QByteArray>>;

class LottieArchive : public Program
{
protected:
    void writeArchive(const char* name, const Files& files) const
    {
        zip* const archive = zip_open(QFile::encodeName(path(name)).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        ASSERT_NE(archive, nullptr);
        for (const auto& [inside, bytes] : files) {
            zip_source_t* const source =
                zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
            ASSERT_GE(zip_file_add(archive, inside.constData(), source, ZIP_FL_ENC_UTF_8), 0);
        }
        ASSERT_EQ(zip_close(archive), 0);
    }

    Outcome imported(const Files& files) const
    {
        writeArchive("a.lottie", files);
        return quarvel("import a.lottie -o a.scene --force");
    }

    std::string refused(const Files& files) const
    {
        const Outcome outcome = imported(files);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_FALSE(exists("a.scene"));
        return outcome.messages;
    }
};

QByteArray animation(const char* layerName)
{
    return document(layer(layerName, group(square(40), fill("1,0,0"))));
}

} // namespace

TEST_F(LottieArchive, IsReadLikeItsDocument)
{
    for (const QByteArray folder : {"animations/", "a/"}) {
        const Outcome outcome = imported(
            {{"manifest.json", R"({"animations": [{"id": "bounce"}]})"}, {folder + "bounce.json", animation("Ball")}});
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
        EXPECT_EQ(outcome.messages, "");
        EXPECT_THAT(quarvel("inspect a.scene").output, HasSubstr("Ball"));
    }
}

TEST_F(LottieArchive, ComesThroughStandardInputToo)
{
    writeArchive("a.lottie", {{"manifest.json", R"({"animations": [{"id": "bounce"}]})"},
                              {"animations/bounce.json", animation("Ball")}});
    const Outcome outcome = piped("a.lottie", "import - -o a.scene");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(quarvel("inspect a.scene").output, HasSubstr("Ball"));
    EXPECT_THAT(piped("a.lottie", "normalmap - -o a.png").messages, HasSubstr("standard input: this is an animation"));
}

TEST_F(LottieArchive, OfSeveralAnimationsTheFirstOfTheManifestIsReadAndTheOthersAreNamed)
{
    const Outcome outcome =
        imported({{"manifest.json", R"({"animations": [{"id": "run"}, {"id": "idle"}, {"id": "jump"}]})"},
                  {"animations/idle.json", animation("Idle")},
                  {"animations/run.json", animation("Run")}});
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.messages, HasSubstr("of its 3 animations the first is read, run; without idle, jump"));
    EXPECT_THAT(quarvel("inspect a.scene").output, HasSubstr("Run"));
}

TEST_F(LottieArchive, ThatIsNoneIsRefusedWithAReason)
{
    EXPECT_THAT(refused({{"other.json", "{}"}}),
                AllOf(HasSubstr("a.lottie"), HasSubstr("\"manifest.json\" is missing")));
    EXPECT_THAT(refused({{"manifest.json", "{}"}}), HasSubstr("lists no animation"));
    EXPECT_THAT(refused({{"manifest.json", R"({"animations": [{"id": "../x"}]})"}}),
                HasSubstr("\"animations/../x.json\" is missing"));
    EXPECT_THAT(refused({{"manifest.json", R"({"animations": [{"id": "x"}]})"}, {"animations/x.json", "{}"}}),
                HasSubstr("a.lottie"));
    write("a.lottie", "PK\x03\x04 and no more");
    const Outcome cut = quarvel("import a.lottie");
    EXPECT_EQ(cut.exitCode, 1);
    EXPECT_THAT(cut.messages, HasSubstr("is it complete?"));
}
