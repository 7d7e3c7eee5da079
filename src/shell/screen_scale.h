// The form measures in twips: 1440 to the inch, so 15 a pixel at 96 dots per inch.
#pragma once

namespace hublink {

// Of the primary screen, in the horizontal direction.
double twipsPerPixelX();

double twipsFromPixels(int pixels);

// Truncated to whole pixels.
int pixelsFromTwips(double twips);

// The same for a given scale. Whole pixels survive both ways at every scale.
int pixelsFromTwips(double twips, double twipsPerPixel);

}
