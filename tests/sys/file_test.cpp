#include "support/full_disk.h"
#include "support/temp_dir.h"
#include "sys/file.h"
#include "sys/path.h"
#include "sys/replaced_file.h"

#include <gtest/gtest.h>

#include <set>
#include <sys/stat.h>

namespace {

TEST(Path, IsTakenApart) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"a.tdf", ".", "a.tdf", ".tdf"},
        {"a.b/c.TDL", "a.b", "c.TDL", ".TDL"},
        {"a.b/c", "a.b", "c", ""},
        {"/plain", "/", "plain", ""},
        {"/x/y/1.5.wav", "/x/y", "1.5.wav", ".wav"},
        {"dot.", ".", "dot.", "."}};
    for (const auto& [path, folder, name, extension] : cases) {
        EXPECT_EQ(GetFolder(path), folder);
        EXPECT_EQ(GetFileName(path), name);
        EXPECT_EQ(GetExtension(path), extension);
    }
    EXPECT_TRUE(HasExtension("a.b/c.TDL", ".tdl"));
    EXPECT_FALSE(HasExtension("a.tdl/c", ".tdl"));
}

TEST(File, OneFileIsFoundThroughLinks) {
    const TempDir dir;
    WriteBytes(dir / "a", "x");
    WriteBytes(dir / "b", "x");
    std::filesystem::create_symlink(dir / "a", dir / "soft");
    std::filesystem::create_hard_link(dir / "a", dir / "hard");
    EXPECT_TRUE(IsSameFile(dir / "a", dir / "./a"));
    EXPECT_TRUE(IsSameFile(dir / "soft", dir / "hard"));
    EXPECT_FALSE(IsSameFile(dir / "a", dir / "b"));
    EXPECT_FALSE(IsSameFile(dir / "no", dir / "no"));
}

TEST(ReplacedFile, OldOrNewButNothingBetween) {
    const TempDir dir;
    const std::string path = dir / "file", link = dir / "link";
    WriteBytes(path, "old");
    chmod(path.c_str(), 0640);
    std::filesystem::create_symlink(path, link);
    {
        const LReplacedFile dropped(path);
        EXPECT_FALSE(dropped.OpenToWrite().Write("half of the n", 13));
        EXPECT_EQ(ReadBytes(path), "old");
    }
    EXPECT_EQ(ReadBytes(path), "old");
    LReplacedFile kept(link);
    EXPECT_FALSE(kept.OpenToWrite().Write("new", 3));
    EXPECT_FALSE(kept.Commit());
    EXPECT_EQ(ReadBytes(path), "new") << "the file behind the link";
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    struct stat info {};
    stat(path.c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
    EXPECT_EQ(dir.CountFiles(), 2u) << "nothing temporary stays";
}

TEST(File, ASaveThatFailsLeavesTheOldContent) {
    const TempDir dir;
    const std::string path = dir / "kept";
    WriteBytes(path, "precious");
    {
        const FullDisk full;
        EXPECT_EQ(LFile::SaveFile(path.c_str(), "xx", 2).GetReason(), "File too large");
        EXPECT_EQ(LFile::SaveFile((dir / "new").c_str(), "xx", 2).GetError(), EFBIG);
    }
    EXPECT_EQ(ReadBytes(path), "precious");
    EXPECT_EQ(dir.CountFiles(), 1U) << "nothing half written stays";
    EXPECT_FALSE(LFile::CopyFile(path.c_str(), path.c_str()));
    EXPECT_FALSE(LFile::CopyFile(path.c_str(), (dir / "copy").c_str()));
    EXPECT_EQ(ReadBytes(path) + ReadBytes(dir / "copy"), "preciousprecious");
    EXPECT_EQ(LFile::CopyFile((dir / "gone").c_str(), path.c_str()).GetError(), ENOENT);
    EXPECT_EQ(ReadBytes(path), "precious");
}

TEST(ReplacedFile, WhatAKilledProgramHasLeftGoesAndNothingElse) {
    const TempDir dir;
    const std::set<std::string> left = {".a.wav.sonvire-00abcd", ".b.sonvire-123456"},
                                stay = {".c.sonvire-123457",
                                        ".config.backup",
                                        ".a.sonvire-12345",
                                        "a.sonvire-123456",
                                        ".a.sonvire-12345x",
                                        ".a.sonvire-1234567",
                                        "kept"};
    for (const auto& names : {left, stay})
        for (const std::string& name : names)
            WriteBytes(dir / name, "x");
    const LSharedReadWriteFile writing(
        (dir / ".c.sonvire-123457").c_str()); // by a program that is still there
    EXPECT_FALSE(LFile::SaveFile((dir / "kept").c_str(), "y", 1));
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(dir / ""))
        found.insert(entry.path().filename());
    EXPECT_EQ(found, stay);
}

TEST(ReplacedFile, IsCreatedOrWrittenDirectlyOrSaysWhyNot) {
    const TempDir dir;
    EXPECT_EQ(LReplacedFile(dir / "no/folder").GetFailure().GetReason(), "No such file or directory");
    EXPECT_EQ(LReplacedFile(dir / "").GetFailure().GetReason(), "Is a directory");
    std::filesystem::create_symlink(dir / "not yet", dir / "dangling");
    for (const std::string& path : {std::string("/dev/null"), dir / "dangling"}) { // no regular files
        LReplacedFile direct(path);
        EXPECT_TRUE(direct.IsWrittenDirectly()) << path;
        EXPECT_FALSE(direct.Commit()) << path;
    }
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "dangling"));
    const std::string longest = dir / std::string(255, 'n');
    LReplacedFile named(longest);
    EXPECT_FALSE(named.Commit());
    EXPECT_TRUE(std::filesystem::exists(longest));
}

} // namespace
