#pragma once

#include <span>

namespace zy {

/// Replaces each y by the mean of its neighbours, weighted by 1 - distance in x / Width down to 0: the regression of
/// E. A. Nadaraya ("On Estimating Regression", 1964) and G. S. Watson ("Smooth Regression Analysis", 1964) with a
/// triangular kernel. The points are sorted in x. Every mean is that of the y from before the call; one that has no
/// neighbour, not even itself (x is not a number), stays. Costs a few scans, however many points lie within Width;
/// where x is out of order or not finite n times these.
///
/// Does nothing with less than 3 points, or where Width is not above 0. Of arrays of two lengths the shorter one
/// counts.
void Smooth(double Width, std::span<const double> X, std::span<double> Y);
/// The same with distances in decades of x; costs an array more. Points without a logarithm have weight only where x is
/// the very same.
void SmoothLog10(double Width, std::span<const double> X, std::span<double> Y);

/// Two-sided 95 percent point of Student's t distribution ("The Probable Error of a Mean", Biometrika 6, 1908), a table
/// in steps: between two rows the one of more degrees of freedom counts, above 500 the normal distribution's 1.96.
double T95Percent(double DegreesOfFreedom);

}  // namespace zy
