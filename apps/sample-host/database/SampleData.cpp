#include "SampleData.h"

#include "HostDatabase.h"

#include <QVariantList>
#include <array>

namespace {

struct Manufacturer {
    const char *name;
    const char *brand; // how the manufacturer's products are named
    const char *city;
    const char *state;
};

// Names with "&", a lower-case start and an apostrophe keep the lists honest about
// escaping and sort order.
constexpr Manufacturer manufacturers[] = {
    {"Alder Creek Shutter Co.", "Alder Creek", "Eugene", "OR"},
    {"Brightline Shades", "Brightline", "Denver", "CO"},
    {"Cascade Window Coverings", "Cascade", "Tacoma", "WA"},
    {"Cedar Ridge Woodworks", "Cedar Ridge", "Asheville", "NC"},
    {"Clearview Solar Shades", "Clearview", "Phoenix", "AZ"},
    {"Coastal Blind Works", "Coastal", "Charleston", "SC"},
    {"Crestmark Shutters", "Crestmark", "Dallas", "TX"},
    {"de Vries Window Fashions", "de Vries", "Grand Rapids", "MI"},
    {"Del Mar Draperies", "Del Mar", "San Diego", "CA"},
    {"Evergreen Window Fashions", "Evergreen", "Portland", "OR"},
    {"Fairhaven Blinds", "Fairhaven", "Bellingham", "WA"},
    {"Glenwood Roman Shades", "Glenwood", "Glenwood Springs", "CO"},
    {"Golden Gate Shutters", "Golden Gate", "Oakland", "CA"},
    {"Hale & Sons Blinds", "Hale", "Columbus", "OH"},
    {"Harborlight Shades", "Harborlight", "Portland", "ME"},
    {"Heritage Plantation Shutters", "Heritage", "Savannah", "GA"},
    {"Highland Woven Woods", "Highland", "Chattanooga", "TN"},
    {"Horizon Vertical Systems", "Horizon", "Tampa", "FL"},
    {"Ironwood Shutter Works", "Ironwood", "Tucson", "AZ"},
    {"Juniper Shade Company", "Juniper", "Bend", "OR"},
    {"Keystone Blind Manufacturing", "Keystone", "Harrisburg", "PA"},
    {"Lakeshore Window Products", "Lakeshore", "Milwaukee", "WI"},
    {"Liberty Faux Wood", "Liberty", "Richmond", "VA"},
    {"Maple Leaf Blinds", "Maple Leaf", "Burlington", "VT"},
    {"Meridian Motorized Shades", "Meridian", "Raleigh", "NC"},
    {"Northstar Cellular Shades", "Northstar", "Minneapolis", "MN"},
    {"O'Malley Drapery Works", "O'Malley", "Boston", "MA"},
    {"Oakmont Shutters", "Oakmont", "Pittsburgh", "PA"},
    {"Pacific Crest Blinds", "Pacific Crest", "Sacramento", "CA"},
    {"Pinecrest Window Fashions", "Pinecrest", "Flagstaff", "AZ"},
    {"Prairie Sun Shades", "Prairie Sun", "Omaha", "NE"},
    {"Redwood Coast Shutters", "Redwood Coast", "Eureka", "CA"},
    {"Riverbend Drapery Hardware", "Riverbend", "Louisville", "KY"},
    {"Sagebrush Woven Shades", "Sagebrush", "Reno", "NV"},
    {"Sierra Shade Systems", "Sierra", "Fresno", "CA"},
    {"Silverline Aluminum Blinds", "Silverline", "Cleveland", "OH"},
    {"Summit Window Coverings", "Summit", "Salt Lake City", "UT"},
    {"Timberline Wood Blinds", "Timberline", "Missoula", "MT"},
    {"Westwind Exterior Shutters", "Westwind", "Boise", "ID"},
};

struct Vendor {
    const char *name;
    const char *city;
    const char *state;
    const char *phone;
};

constexpr Vendor vendors[] = {
    {"Acme Window Supply", "Spokane", "WA", "(509) 555-0101"},
    {"Allied Shade Distributors", "Fresno", "CA", "(559) 555-0117"},
    {"American Blind Wholesale", "Atlanta", "GA", "(404) 555-0123"},
    {"Bay Area Window Source", "Hayward", "CA", "(510) 555-0131"},
    {"Big Sky Shade Supply", "Billings", "MT", "(406) 555-0144"},
    {"Blue Ridge Millwork", "Roanoke", "VA", "(540) 555-0150"},
    {"Canyon State Distributors", "Mesa", "AZ", "(480) 555-0162"},
    {"Capitol Window Coverings Supply", "Sacramento", "CA", "(916) 555-0178"},
    {"Central Valley Blinds Wholesale", "Modesto", "CA", "(209) 555-0185"},
    {"Coast to Coast Shutter Supply", "Jacksonville", "FL", "(904) 555-0192"},
    {"Columbia Fabric Mills", "Vancouver", "WA", "(360) 555-0108"},
    {"Desert Sun Shade Supply", "Las Vegas", "NV", "(702) 555-0113"},
    {"Empire Drapery Hardware", "Albany", "NY", "(518) 555-0129"},
    {"First Choice Blind Distributors", "Orlando", "FL", "(407) 555-0136"},
    {"Frontier Window Products", "Cheyenne", "WY", "(307) 555-0147"},
    {"Great Lakes Shade Supply", "Toledo", "OH", "(419) 555-0158"},
    {"Gulf Coast Shutter Distributors", "Mobile", "AL", "(251) 555-0164"},
    {"Heartland Window Supply", "Wichita", "KS", "(316) 555-0171"},
    {"Intermountain Blind Wholesale", "Ogden", "UT", "(801) 555-0189"},
    {"Keystone Fabrics", "Allentown", "PA", "(610) 555-0194"},
    {"Lone Star Window Coverings", "San Antonio", "TX", "(210) 555-0105"},
    {"Magnolia Drapery Supply", "Jackson", "MS", "(601) 555-0119"},
    {"Midwest Motorization Parts", "Des Moines", "IA", "(515) 555-0126"},
    {"Mountain West Shutter Supply", "Boise", "ID", "(208) 555-0133"},
    {"New England Shade Co.", "Worcester", "MA", "(508) 555-0141"},
    {"Northwest Window Source", "Salem", "OR", "(503) 555-0152"},
    {"Old Dominion Blinds", "Norfolk", "VA", "(757) 555-0168"},
    {"Pacific Fabric & Trim", "Long Beach", "CA", "(562) 555-0175"},
    {"Palmetto Shade Supply", "Columbia", "SC", "(803) 555-0183"},
    {"Piedmont Window Distributors", "Greensboro", "NC", "(336) 555-0196"},
    {"Rocky Mountain Blind Supply", "Pueblo", "CO", "(719) 555-0102"},
    {"Sierra Nevada Wholesale", "Carson City", "NV", "(775) 555-0114"},
    {"Southern Comfort Shutters", "Baton Rouge", "LA", "(225) 555-0127"},
    {"Sunbelt Window Products", "Tucson", "AZ", "(520) 555-0138"},
    {"Tri-State Shade Supply", "Evansville", "IN", "(812) 555-0149"},
    {"Twin Cities Blind Wholesale", "St. Paul", "MN", "(651) 555-0155"},
    {"Valley Forge Window Supply", "King of Prussia", "PA", "(484) 555-0166"},
    {"Wasatch Window Coverings", "Provo", "UT", "(801) 555-0177"},
    {"Western Shutter Distributors", "Bakersfield", "CA", "(661) 555-0186"},
    {"Yellowstone Shade Supply", "Idaho Falls", "ID", "(208) 555-0199"},
};

struct ProductType {
    const char *name;
    const char *singular; // as it ends a product's name
};

constexpr ProductType productTypes[] = {
    {"Aluminum Blinds", "Aluminum Blind"},
    {"Cellular Shades", "Cellular Shade"},
    {"Drapery Hardware", "Drapery Rod"},
    {"Exterior Shutters", "Exterior Shutter"},
    {"Faux Wood Blinds", "Faux Wood Blind"},
    {"Motorization", "Motor Kit"},
    {"Plantation Shutters", "Plantation Shutter"},
    {"Pleated Shades", "Pleated Shade"},
    {"Roller Shades", "Roller Shade"},
    {"Roman Shades", "Roman Shade"},
    {"Sheer Shades", "Sheer Shade"},
    {"Solar Shades", "Solar Shade"},
    {"Valances", "Valance"},
    {"Vertical Blinds", "Vertical Blind"},
    {"Vinyl Shutters", "Vinyl Shutter"},
    {"Wood Blinds", "Wood Blind"},
    {"Woven Wood Shades", "Woven Wood Shade"},
};

constexpr const char *series[] = {"Classic", "Signature", "Designer", "Essentials",
                                  "Premier", "Legacy",    "Contour",  "Vista"};

constexpr int productsPerManufacturer = 8;

// Rows go in out of name order (a stride through the table), so that lists ordered by
// the database show that they were sorted.
template <typename T, size_t N> int strided(const T (&)[N], int i)
{
    constexpr int stride = 7;
    static_assert(N % stride != 0, "the stride must visit every row");
    return int((size_t(i) * stride) % N);
}

bool insertRows(const HostDatabase &database, const QString &sql, int count,
                const std::function<QVariantList(int)> &row)
{
    QSqlQuery query(database.connection());
    if (!query.prepare(sql))
        return false;
    for (int i = 0; i < count; ++i) {
        for (const QVariant &value : row(i))
            query.addBindValue(value);
        if (!query.exec())
            return false;
    }
    return true;
}

bool inTransaction(const HostDatabase &database, const std::function<bool()> &work)
{
    QSqlDatabase connection = database.connection();
    if (!connection.transaction())
        return false;
    if (work())
        return connection.commit();
    connection.rollback();
    return false;
}

QString text(const char *utf8) { return QString::fromUtf8(utf8); }

bool insertSampleRows(const HostDatabase &database)
{
    const int manufacturerCount = int(std::size(manufacturers));
    const int vendorCount = int(std::size(vendors));
    const int typeCount = int(std::size(productTypes));
    return insertRows(database,
                      QStringLiteral("INSERT INTO Company (CompanyName, BillToAddress, BillToCity,"
                                     " BillToState, BillToZip, Phone) VALUES (?, ?, ?, ?, ?, ?)"),
                      1,
                      [](int) -> QVariantList {
                          return {QStringLiteral("Sunbridge Window Fashions"),
                                  QStringLiteral("1420 W Main St"),
                                  QStringLiteral("Boise"),
                                  QStringLiteral("ID"),
                                  QStringLiteral("83702"),
                                  QStringLiteral("(208) 555-0142")};
                      })
           && insertRows(database,
                         QStringLiteral("INSERT INTO Manufacturers (ManufacturerID, Manufacturer,"
                                        " City, State) VALUES (?, ?, ?, ?)"),
                         manufacturerCount,
                         [](int i) -> QVariantList {
                             const int m = strided(manufacturers, i);
                             return {m + 1, text(manufacturers[m].name),
                                     text(manufacturers[m].city), text(manufacturers[m].state)};
                         })
           && insertRows(database,
                         QStringLiteral("INSERT INTO Vendors (VendorID, VendorName, City, State,"
                                        " Phone) VALUES (?, ?, ?, ?, ?)"),
                         vendorCount,
                         [](int i) -> QVariantList {
                             const int v = strided(vendors, i);
                             return {v + 1, text(vendors[v].name), text(vendors[v].city),
                                     text(vendors[v].state), text(vendors[v].phone)};
                         })
           && insertRows(database,
                         QStringLiteral("INSERT INTO ProductTypes (ProductTypeID, ProductType)"
                                        " VALUES (?, ?)"),
                         typeCount,
                         [](int i) -> QVariantList {
                             const int t = strided(productTypes, i);
                             return {t + 1, text(productTypes[t].name)};
                         })
           && insertRows(
               database,
               QStringLiteral("INSERT INTO Products (Product, ProductTypeID, ManufacturerID,"
                              " VendorID, ProductSource, ListPrice) VALUES (?, ?, ?, ?, ?, ?)"),
               manufacturerCount * productsPerManufacturer, [&](int i) -> QVariantList {
                   // Each manufacturer makes a different handful of the product types.
                   const int m = i / productsPerManufacturer;
                   const int k = i % productsPerManufacturer;
                   const int t = (m * 3 + k * 5) % typeCount;
                   const QString name = text(manufacturers[m].brand) + u' '
                                        + text(series[(m + k) % std::size(series)]) + u' '
                                        + text(productTypes[t].singular);
                   return {name,  t + 1,
                           m + 1, (i * 11) % vendorCount + 1,
                           i % 5, 39.95 + (i * 37) % 400};
               });
}

} // namespace

bool FillSampleData(const HostDatabase &database)
{
    return inTransaction(database, [&] { return insertSampleRows(database); });
}

bool AddGeneratedVendors(const HostDatabase &database, int count)
{
    static constexpr std::array prefixes{"Apex",     "Atlas",    "Beacon",  "Cardinal", "Crown",
                                         "Eagle",    "Granite",  "Harbor",  "Liberty",  "Mesa",
                                         "Monarch",  "Patriot",  "Pioneer", "Premier",  "Quality",
                                         "Redstone", "Sterling", "Summit",  "United",   "Victory"};
    static constexpr std::array regions{"Central",  "Coastal",  "Eastern",  "Gulf",
                                        "Lakeside", "Midland",  "Northern", "Pacific",
                                        "Prairie",  "Southern", "Valley",   "Western"};
    static constexpr std::array kinds{"Blind Supply",    "Shade Distributors", "Shutter Wholesale",
                                      "Window Products", "Drapery Supply",     "Window Coverings",
                                      "Fabric Mills",    "Hardware Supply"};
    const int combinations = int(prefixes.size() * regions.size() * kinds.size());
    return inTransaction(database, [&] {
        return insertRows(
            database,
            QStringLiteral("INSERT INTO Vendors (VendorName, City, State) VALUES (?, ?, ?)"), count,
            [&](int i) -> QVariantList {
                const int c = i % combinations;
                QString name = text(prefixes[size_t(c) % prefixes.size()]) + u' '
                               + text(regions[size_t(c / int(prefixes.size())) % regions.size()])
                               + u' '
                               + text(kinds[size_t(c / int(prefixes.size() * regions.size()))]);
                if (i >= combinations)
                    name += QStringLiteral(" #%1").arg(i / combinations + 1);
                return {name, text(vendors[size_t(i) % std::size(vendors)].city),
                        text(vendors[size_t(i) % std::size(vendors)].state)};
            });
    });
}
