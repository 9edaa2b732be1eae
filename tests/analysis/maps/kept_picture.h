// The drawing as a picture, kept where TERVA_PICTURES says; for looking at.
#pragma once

#include "hostkit/model_space.h"

#include <render/picture_export.h>

#include <QDir>

#include <gtest/gtest.h>

inline void keepDrawing(const QString& name, const QSize& pixels)
{
    const QString folder = qEnvironmentVariable("TERVA_PICTURES");
    if (folder.isEmpty())
        return;
    PictureOptions options;
    options.pixels = pixels;
    EXPECT_EQ(exportPicture(*workingDatabase(), QDir(folder).filePath(name), options), QString());
}
