#pragma once

#include "demo/database_builder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace vorn::demo {

/// The folder of the sample database, built once for all tests of the program. It is theirs to read and copy.
inline const QDir& SampleFolder()
{
    static const QTemporaryDir folder;
    static const QDir built = [] {
        BuildDatabase(folder.filePath(QStringLiteral("studio.db")));
        return QDir(folder.path());
    }();
    return built;
}

/// Makes `file` a sample database that the test may change.
inline void CopySample(const QString& file)
{
    if (!QFile::copy(SampleFolder().filePath(QStringLiteral("studio.db")), file))
        throw std::runtime_error("can't copy the sample to " + file.toStdString());
}

} // namespace vorn::demo
