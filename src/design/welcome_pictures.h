#pragma once

#include "platform/canvas.h"

namespace kalvex {

// The three pictures of the welcome page: a chain of boxes Z1..Z5 between the
// load and the generator, a sketch of a Smith chart stretched by
// `chartAspect`, and a gallery of the thirteen parts.
void DrawWelcomePictures(Canvas& canvas, float chartAspect, float coilArcRadius);

// The welcome page's drawing: its background, then the three pictures.
void DrawWelcomePage(Canvas& canvas, float chartAspect, float coilArcRadius);

}  // namespace kalvex
