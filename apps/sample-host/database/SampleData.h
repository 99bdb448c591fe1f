#pragma once

// The rows of the sample dealer's database, and larger generated data sets for
// benchmarks. Plain SQL inserts, so any database with the sample tables takes them.

class HostDatabase;

// The company, manufacturers, vendors, product types and products of a dealer of
// blinds, shades and shutters. False when an insert failed (nothing is kept then).
bool FillSampleData(const HostDatabase &database);

// Adds `count` vendors with made-up but plausible names, all different.
bool AddGeneratedVendors(const HostDatabase &database, int count);
