#include "studio/output_set.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "studio/studio_error.h"

namespace {

class Outputs : public testing::Test {
 protected:
  QString Path(const QString& name) const { return folder.filePath(name); }

  QByteArray Content(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }

  void Fill(const QString& name, const QByteArray& content) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  QTemporaryDir folder;
};

TEST_F(Outputs, TakeTheirPlacesTogetherOrNotAtAll) {
  Fill("old", "before");
  {
    OutputSet outputs;
    outputs.Add(Path("old")).write("half");
    outputs.Add(Path("new")).write("half");
  }
  EXPECT_EQ(Content("old"), "before");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("old"));

  OutputSet outputs;
  outputs.Add(Path("old")).write("after");
  outputs.Add(Path("new")).write("too");
  EXPECT_EQ(Content("old"), "before");
  outputs.Commit();
  EXPECT_EQ(Content("old"), "after");
  EXPECT_EQ(Content("new"), "too");
}

TEST_F(Outputs, RefusePlacesThatCannotBeWrittenOrAreInUse) {
  Fill("picture", "pixels");
  QDir(folder.path()).mkdir("folder");
  ASSERT_TRUE(QFile::link(Path("picture"), Path("link")));
  OutputSet outputs;
  outputs.Protect(Path("picture"));
  outputs.Add(Path("taken"));
  for (const char* name : {"picture", "link", "folder/../picture", "taken", "folder/../taken",
                           "folder", "absent/file"}) {
    EXPECT_THROW(outputs.Add(Path(name)), StudioError) << name;
  }
  EXPECT_THROW(outputs.Add("/dev/null"), StudioError);
}

}  // namespace
