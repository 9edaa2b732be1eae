#pragma once
// Pictures of forms: kept where TERVA_PICTURES says, for the documentation and
// for looking at; otherwise they are only taken.

#include <QCoreApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>

/// Shows the form, lets its layout settle and takes its picture. False when
/// there is nothing to see or the picture could not be kept.
inline bool takePicture(QWidget& form, const QString& name)
{
    form.show();
    QCoreApplication::processEvents();
    const QPixmap picture = form.grab();
    const QString folder = qEnvironmentVariable("TERVA_PICTURES");
    return !picture.isNull() && (folder.isEmpty() || picture.save(QDir(folder).filePath(name + ".png")));
}
