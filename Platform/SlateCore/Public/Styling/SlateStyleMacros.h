// Brushes from files under a style set's content root; `RootToContentDir` must be in scope.
#pragma once

#include "Brushes/SlateImageBrush.h"

#define IMAGE_BRUSH(RelativePath, ...) FSlateImageBrush(RootToContentDir(RelativePath, TEXT(".png")), __VA_ARGS__)
#define IMAGE_BRUSH_SVG(RelativePath, ...) FSlateVectorImageBrush(RootToContentDir(RelativePath, TEXT(".svg")), __VA_ARGS__)
#define CORE_IMAGE_BRUSH(RelativePath, ...) FSlateImageBrush(RootToCoreContentDir(RelativePath, TEXT(".png")), __VA_ARGS__)
#define CORE_IMAGE_BRUSH_SVG(RelativePath, ...) FSlateVectorImageBrush(RootToCoreContentDir(RelativePath, TEXT(".svg")), __VA_ARGS__)
