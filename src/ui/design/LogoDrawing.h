#pragma once

#include "platform/Bundle.h"

#include <QImage>

namespace tidlo {

/// The picture of the logo: logo.png among the resources of \a bundle or, where that cannot be read, the application's
/// icon; null if it has none. Read anew each time. Without an application object to ask for the icon, the program ends
/// with a fatal error.
QImage findLogo(const Bundle &bundle);

/// A square of \a size points that \a picture fills, its corners rounded. For a null picture, sparkles on the accents
/// of the theme, its corners a little rounder.
QImage drawLogo(const QImage &picture, double size, double pixelRatio);

} // namespace tidlo
