#pragma once

#include <span>
#include <vector>

namespace zy {

/// Growing arrays of numbers.
using TDoubleDynArray = std::vector<double>;
using TDoubleDynMatrix = std::vector<TDoubleDynArray>;

/// The polynomial whose coefficient of x^k is Coefficients[k], by W. G. Horner's rule ("A new method of solving
/// numerical equations of all orders, by continuous approximation", 1819). 0 without coefficients.
double Polynom(double X, std::span<const double> Coefficients);

/// Solves a banded system of N equations in place by LU elimination without pivoting (G. H. Golub, C. F. Van Loan,
/// "Matrix Computations", 4th edition, 2013, chapter 4.3), in time N x Lower x Upper and without allocating. It is
/// stable for matrices that are diagonally dominant or positive definite, such as those of splines.
///
/// Lower and Upper count the diagonals below and above the main one. Row i of the matrix holds element (i, j) at
/// Lower + j - i, so that the main diagonal is column Lower; what lies outside the matrix is not read. Matrix becomes
/// its factors, Right the solution. A pivot of zero is passed over: the solution then is not finite wherever the zero
/// stays. Throws `EMathError` for N below 3, for bandwidths that are negative or together above N, and for arrays that
/// hold less than they are said to; nothing is changed then.
void SolveBandMatrix(int N, int Lower, int Upper, TDoubleDynMatrix& Matrix, TDoubleDynArray& Right);

/// Solves a tridiagonal system of N equations in place by the elimination of L. H. Thomas ("Elliptic Problems in Linear
/// Differential Equations over a Network", Watson Scientific Computing Laboratory, 1949), without allocating.
///
/// Lower[i] couples row i to row i - 1 (Lower[0] is not read), Upper[i] row i to row i + 1 (the last is not read).
/// Right becomes the solution, the other arrays are used up. Throws `EMathError` for N below 2 or above what the arrays
/// hold, and when a pivot vanishes or is not a number; the arrays then hold the steps up to there.
void SolveTridiagonalEquationSystem(int N, TDoubleDynArray& Lower, TDoubleDynArray& Main, TDoubleDynArray& Upper,
                                    TDoubleDynArray& Right);

}  // namespace zy
