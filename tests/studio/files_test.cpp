// Names of files, and files that appear together or not at all.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <iterator>

#include "platform/nrvcore/file.h"
#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "testkit/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

TEST(FileName, KeepsEveryByteAndShowsWhatIsStrange) {
  const std::pair<const char*, const char*> kNames[] = {
      {"plain", "plain"},
      {"a\tb\nc\x01", "a\\tb\\nc\\x01"},
      {"\x7F\xC2\x85", "\\x7F\\x85"},
      {"\xE4\xFF.png", "\\xE4\\xFF.png"},
      {"ä💀", "ä💀"},  // U+1F480, whose low surrogate alone would stand for a byte
      {"💀\x80", "💀\\x80"},
      {"\xF0\x9F\x98", "\\xF0\\x9F\\x98"},
      {"\xED\xB2\x80", "\\xED\\xB2\\x80"},
      {"a\u2028b\u2029", "a\\x2028b\\x2029"},
  };
  for (const auto& [bytes, shown] : kNames) {
    EXPECT_STREQ(SystemPath(FileName(bytes)).c_str(), bytes) << shown;
    EXPECT_EQ(OnOneLine(FileName(bytes)).toStdString(), shown);
  }
}

class Output : public testing::Test {
 protected:
  Output() { folder.Write("old", "as it was"); }

  QString Name(const char* file) const { return QString((folder.path / file).c_str()); }
  std::string Text(const char* file) const { return nrvcore::ReadFile(folder.path / file); }
  long Files() const {
    const fs::directory_iterator files(folder.path);
    return std::distance(begin(files), end(files));
  }

  const testkit::TemporaryFolder folder;
};

TEST_F(Output, IsAllInPlaceOrAsItWas) {
  const auto commit = [&](const char* last) {
    OutputSet outputs;
    for (const char* file : {"old", "new", last}) WriteAll(outputs.Add(Name(file)), "written");
    create_directory(folder.path / "taken");
    outputs.Commit();
  };
  EXPECT_THROW(commit("taken"), StudioError);
  EXPECT_EQ(Text("old"), "as it was");
  EXPECT_EQ(Files(), 2) << "the folder and what was there";
  commit(":no resource\n");
  for (const char* file : {"old", "new", ":no resource\n"}) EXPECT_EQ(Text(file), "written");
  EXPECT_EQ(Files(), 4) << "nothing else is left";
}

TEST_F(Output, ThatIsGivenUpOrFindsNoRoomLeavesNothing) {
  {
    OutputSet outputs;
    WriteAll(outputs.Add(Name("old")), "half of it");
    WriteAll(outputs.Add(Name("new")), "half of it");
    EXPECT_EQ(Files(), 3);
  }
  EXPECT_EQ(Files(), 1);

  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  {
    OutputSet outputs;
    WriteAll(outputs.Add(Name("old")), "new");
    QIODevice& large = outputs.Add(Name("large"));
    const rlimit low{100, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &low);
    std::string reason;
    try {
      WriteAll(large, std::string(1000, 'x'));  // a tenth of it finds room
    } catch (const StudioError& error) {
      reason = error.what();
    }
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(reason.ends_with("large: the file is too large")) << reason;
  }
  std::signal(SIGXFSZ, SIG_DFL);
  EXPECT_EQ(Files(), 1);
  EXPECT_EQ(Text("old"), "as it was");
}

TEST_F(Output, LeavesNothingBesideSomebodyElsesFileInAStickyFolder) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can become somebody else";
  constexpr uid_t kSomebodyElse = 65534;
  const auto openToAll = [&](const char* file) {
    fs::permissions(folder.path / file, fs::perms(0666));
  };
  fs::permissions(folder.path, fs::perms(01777));
  openToAll("old");
  {
    ASSERT_EQ(seteuid(kSomebodyElse), 0);
    OutputSet outputs;
    EXPECT_THROW(outputs.Add(Name("old")), StudioError);
    WriteAll(outputs.Add(Name("later")), "new");
    ASSERT_EQ(seteuid(0), 0);
    folder.Write("later", "root's");
    openToAll("later");
    ASSERT_EQ(seteuid(kSomebodyElse), 0);
    EXPECT_THROW(outputs.Commit(), StudioError);
  }
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_EQ(Text("old") + Text("later"), "as it wasroot's");
  EXPECT_EQ(Files(), 2);
}

TEST_F(Output, GoesBehindLinksAndKeepsTheMode) {
  fs::permissions(folder.path / "old", fs::perms(0640));
  fs::create_symlink("old", folder.path / "link");
  fs::create_symlink("link", folder.path / "second");
  fs::create_symlink("later", folder.path / "dangling");
  fs::create_symlink("circle", folder.path / "circle");
  const mode_t mask = umask(027);
  OutputSet outputs;
  WriteAll(outputs.Add(Name("second")), "new");
  WriteAll(outputs.Add(Name("dangling")), "new");
  EXPECT_THROW(outputs.Add(Name("circle")), StudioError);
  EXPECT_THROW(outputs.Add(Name("old")), StudioError) << "is written already";
  outputs.Commit();
  umask(mask);
  for (const char* link : {"link", "second", "dangling"})
    EXPECT_TRUE(is_symlink(folder.path / link)) << link;
  for (const char* file : {"old", "later"}) {
    EXPECT_EQ(Text(file), "new");
    EXPECT_EQ(status(folder.path / file).permissions(), fs::perms(0640)) << file;
  }
  EXPECT_EQ(Files(), 6);
}

}  // namespace
