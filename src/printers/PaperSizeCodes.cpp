#include "printers/PaperSizeCodes.h"

#include "printers/NumberCodes.h"
#include <cmath>

namespace bravcpl5 {

namespace {

struct PaperCode {
    int code;
    double width; // portrait, in the unit below
    double height;
    bool inches; // otherwise millimetres
};

// Windows' paper sizes with their exact dimensions. Where two codes name the same sheet
// (Letter Small, A4 Small, Note, transverse twins, German legal fanfold) only the usual
// one is listed, and it is listed first, so a match never lands on the rarer twin.
constexpr PaperCode paperCodes[] = {
    {1, 8.5, 11, true},     {3, 11, 17, true},       {4, 17, 11, true},
    {5, 8.5, 14, true},     {6, 5.5, 8.5, true},     {7, 7.25, 10.5, true},
    {8, 297, 420, false},   {9, 210, 297, false},    {11, 148, 210, false},
    {12, 250, 354, false},  {13, 182, 257, false},   {14, 8.5, 13, true},
    {15, 215, 275, false},  {16, 10, 14, true},      {19, 3.875, 8.875, true},
    {20, 4.125, 9.5, true}, {21, 4.5, 10.375, true}, {22, 4.75, 11, true},
    {23, 5, 11.5, true},    {24, 17, 22, true},      {25, 22, 34, true},
    {26, 34, 44, true},     {27, 110, 220, false},   {28, 162, 229, false},
    {29, 324, 458, false},  {30, 229, 324, false},   {31, 114, 162, false},
    {32, 114, 229, false},  {42, 250, 353, false},   {34, 176, 250, false},
    {35, 176, 125, false},  {36, 110, 230, false},   {37, 3.875, 7.5, true},
    {38, 3.625, 6.5, true}, {39, 14.875, 11, true},  {40, 8.5, 12, true},
    {43, 100, 148, false},  {44, 9, 11, true},       {45, 10, 11, true},
    {46, 15, 11, true},     {47, 220, 220, false},   {50, 9.5, 12, true},
    {51, 9.5, 15, true},    {52, 11.69, 18, true},   {53, 9.27, 12.69, true},
    {54, 8.275, 11, true},  {57, 227, 356, false},   {58, 305, 487, false},
    {59, 8.5, 12.69, true}, {60, 210, 330, false},   {63, 322, 445, false},
    {64, 174, 235, false},  {65, 201, 276, false},   {66, 420, 594, false},
    {69, 200, 148, false},  {70, 105, 148, false},   {71, 240, 332, false},
    {72, 216, 277, false},  {73, 120, 235, false},   {74, 90, 205, false},
    {75, 11, 8.5, true},    {76, 420, 297, false},   {77, 297, 210, false},
    {78, 210, 148, false},  {79, 364, 257, false},   {80, 257, 182, false},
    {81, 148, 100, false},  {82, 148, 200, false},   {83, 148, 105, false},
    {84, 332, 240, false},  {85, 277, 216, false},   {86, 235, 120, false},
    {87, 205, 90, false},   {88, 128, 182, false},   {89, 182, 128, false},
    {90, 12, 11, true},     {91, 105, 235, false},   {92, 235, 105, false},
    {93, 146, 215, false},  {94, 97, 151, false},    {96, 102, 165, false},
    {97, 102, 176, false},  {98, 125, 176, false},   {99, 110, 208, false},
    {101, 120, 230, false}, {102, 160, 230, false},  {103, 120, 309, false},
};

// PPDs round most sizes to whole points; a point either way still tells sheets apart
// (the nearest distinct sheets, 12 x 18 and Tabloid Extra, differ by 22 points).
constexpr double tolerance = 1.0;

double toPoints(double value, bool inches) { return inches ? value * 72.0 : value * 72.0 / 25.4; }

} // namespace

int StandardPaperSizeCode(const QSizeF &points)
{
    for (const PaperCode &paper : paperCodes) {
        if (std::abs(toPoints(paper.width, paper.inches) - points.width()) <= tolerance
            && std::abs(toPoints(paper.height, paper.inches) - points.height()) <= tolerance)
            return paper.code;
    }
    return 0;
}

bool SamePaper(const QSizeF &a, const QSizeF &b)
{
    return std::abs(a.width() - b.width()) < 1.0 && std::abs(a.height() - b.height()) < 1.0;
}

QList<int> NumberPaperSizes(const QList<QSizeF> &points)
{
    return NumberCodes(points, FirstPrinterPaperCode, StandardPaperSizeCode);
}

} // namespace bravcpl5
