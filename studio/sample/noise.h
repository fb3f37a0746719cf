#pragma once

/// Smooth random values between 0 and 1, the same for the same place.
double Noise(double x, double y);

/// Noise of several sizes, each half as large and half as strong as the one before, 0 to 1.
double Fractal(double x, double y, int octaves);
