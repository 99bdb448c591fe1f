#pragma once

// The dealer's customer quote for blinds and shutters, a process report: the company
// block, the customer's and the job site's addresses, the order information, the line
// items with their options, the totals with the discount, the deposit, comments, notes
// and signature lines, each in its process report font (types 1, 6, 7 and 14 to 38).

#include "Records.h"
#include "ReportBands.h"

#include <memory>

// The quote for a content area `width` twips wide; null when the library has no ReportLayout.
std::unique_ptr<BandedReport> BuildQuoteReport(QObject *library, const Company &company,
                                               const Quote &quote, double width);

// The amounts the quote prints.
struct QuoteTotals {
    double subtotal = 0, discount = 0, tax = 0, total = 0, deposit = 0;
};
QuoteTotals TotalsOf(const Quote &quote);
