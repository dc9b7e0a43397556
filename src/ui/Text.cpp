// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Text.h"

#include "core/platform.h"
#include "core/win1252.h"

#include <QDir>
#include <QFile>

namespace text {

QString ToQt(std::string_view bytes) {
    QString out;
    out.reserve(static_cast<qsizetype>(bytes.size()));
    for (const unsigned char c : bytes)
        out += QChar(static_cast<char16_t>(win1252::CodePoint(c)));
    return out;
}

std::string ToFile(const QString& text) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar c : text) {
        const auto byte = win1252::ByteFor(c.unicode());
        out += byte ? static_cast<char>(*byte) : '?';
    }
    return out;
}

std::optional<std::string> ToFileExact(const QString& text) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar c : text) {
        const auto byte = win1252::ByteFor(c.unicode());
        if (!byte)
            return std::nullopt;
        out += static_cast<char>(*byte);
    }
    return out;
}

QString NativePath(std::string_view path) {
    // The core joins its pieces with backslashes and keeps names on disk in the system's
    // file-name encoding: shown as the system spells the path.
    return QDir::toNativeSeparators(DiskText(platform::HostPath(path)));
}

std::string CorePath(const QString& path) {
#ifdef _WIN32
    return path.toStdString();
#else
    return QFile::encodeName(path).toStdString();
#endif
}

QString DiskText(std::string_view coreText) {
    const QByteArray bytes(coreText.data(), static_cast<qsizetype>(coreText.size()));
#ifdef _WIN32
    return QString::fromUtf8(bytes);
#else
    return QFile::decodeName(bytes);
#endif
}

} // namespace text
