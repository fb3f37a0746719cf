#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "tests/support/random_picture.h"

/// A folder with "in.png" of 60 by 40 points, which also holds the user's settings in "config".
class StudioFolder : public testing::Test {
 protected:
  StudioFolder() {
    qputenv("XDG_CONFIG_HOME", Path("config").toUtf8());
    SaveRandomPicture(Path("in.png"));
  }

  QString Path(const QString& name) const { return folder.filePath(name); }

  void Save(const QString& name, const QByteArray& content) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  QByteArray Load(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
};
