#pragma once
#include <QString>
#include <QVariantMap>
#include <filesystem>

namespace quill::practice {

/// Writes the pictures that stand in an HTML text as base64 data addresses into files below `folder`
/// (named by their contents) and puts the files' addresses in their place, as OneNote's application does
/// on the clipboard. A picture that cannot be written keeps its data address.
QString PicturesToFiles(const QString& html, const std::filesystem::path& folder);

/// The data addresses of the picture files that an HTML text shows, by their "file:" addresses. Only regular
/// files that begin like a picture and are no larger than 32 MiB are read.
QVariantMap PicturesFromFiles(const QString& html);

/// The data address of a PNG picture.
QString DataAddress(const QByteArray& png);

}  // namespace quill::practice
