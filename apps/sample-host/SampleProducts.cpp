#include "SampleProducts.h"

#include <algorithm>

QList<SampleProduct> SampleProducts()
{
    struct Row {
        const char *type, *product, *manufacturer, *vendor;
        double price;
    };
    static const Row rows[] = {
        {"Cellular Shades", "Single Cell Light Filtering 3/8\"", "Northlight Shades", "Coastal Window Supply", 189.00},
        {"Cellular Shades", "Single Cell Blackout 3/8\"", "Northlight Shades", "Coastal Window Supply", 229.00},
        {"Cellular Shades", "Double Cell Light Filtering 3/4\"", "Northlight Shades", "Coastal Window Supply", 264.00},
        {"Cellular Shades", "Double Cell Blackout 3/4\"", "Northlight Shades", "Coastal Window Supply", 298.00},
        {"Cellular Shades", "Top Down Bottom Up Cellular", "Alder & Finch", "Midwest Blind Distributors", 342.50},
        {"Cellular Shades", "Day Night Cellular", "Alder & Finch", "Midwest Blind Distributors", 415.00},
        {"Cellular Shades", "Motorized Cellular, Rechargeable", "Alder & Finch", "Midwest Blind Distributors", 689.00},
        {"Cellular Shades", "Skylight Cellular", "Northlight Shades", "Coastal Window Supply", 1125.00},
        {"Roller Shades", "Light Filtering Roller", "Brightline Window Co.", "Coastal Window Supply", 119.00},
        {"Roller Shades", "Blackout Roller", "Brightline Window Co.", "Coastal Window Supply", 149.00},
        {"Roller Shades", "Solar Screen 3%", "Brightline Window Co.", "Coastal Window Supply", 168.00},
        {"Roller Shades", "Solar Screen 5%", "Brightline Window Co.", "Coastal Window Supply", 162.00},
        {"Roller Shades", "Solar Screen 10%", "Brightline Window Co.", "Coastal Window Supply", 155.00},
        {"Roller Shades", "Dual Roller, Sheer and Blackout", "Alder & Finch", "Midwest Blind Distributors", 389.00},
        {"Roller Shades", "Cassette Roller, Fabric Wrapped", "Alder & Finch", "Midwest Blind Distributors", 276.00},
        {"Roller Shades", "Motorized Roller, Hardwired", "Brightline Window Co.", "Coastal Window Supply", 745.00},
        {"Roller Shades", "Exterior Solar Roller", "Brightline Window Co.", "Coastal Window Supply", 1290.00},
        {"Roman Shades", "Flat Fold Roman", "Alder & Finch", "Midwest Blind Distributors", 312.00},
        {"Roman Shades", "Hobbled Roman", "Alder & Finch", "Midwest Blind Distributors", 358.00},
        {"Roman Shades", "Relaxed Roman, Linen", "Alder & Finch", "Midwest Blind Distributors", 396.00},
        {"Roman Shades", "Woven Wood Roman", "Cedar Ridge Shutters", "Midwest Blind Distributors", 284.00},
        {"Roman Shades", "Woven Wood Roman, Liner", "Cedar Ridge Shutters", "Midwest Blind Distributors", 331.00},
        {"Shutters", "Basswood Shutter 2 1/2\" Louver", "Cedar Ridge Shutters", "Great Lakes Millwork", 612.00},
        {"Shutters", "Basswood Shutter 3 1/2\" Louver", "Cedar Ridge Shutters", "Great Lakes Millwork", 648.00},
        {"Shutters", "Basswood Shutter 4 1/2\" Louver", "Cedar Ridge Shutters", "Great Lakes Millwork", 689.00},
        {"Shutters", "Composite Shutter 3 1/2\" Louver", "Cedar Ridge Shutters", "Great Lakes Millwork", 498.00},
        {"Shutters", "Vinyl Shutter 3 1/2\" Louver", "Brightline Window Co.", "Great Lakes Millwork", 439.00},
        {"Shutters", "Cafe Shutter, Basswood", "Cedar Ridge Shutters", "Great Lakes Millwork", 358.00},
        {"Shutters", "Bifold Track Shutter", "Cedar Ridge Shutters", "Great Lakes Millwork", 1480.00},
        {"Shutters", "Arch Shutter, Sunburst", "Cedar Ridge Shutters", "Great Lakes Millwork", 1865.00},
        {"Vertical Blinds", "Vinyl Vertical 3 1/2\"", "Brightline Window Co.", "Coastal Window Supply", 139.00},
        {"Vertical Blinds", "Fabric Vertical 3 1/2\"", "Brightline Window Co.", "Coastal Window Supply", 182.00},
        {"Vertical Blinds", "Fabric Insert Vertical", "Brightline Window Co.", "Coastal Window Supply", 205.00},
        {"Vertical Blinds", "Sheer Vertical Panel", "Northlight Shades", "Coastal Window Supply", 468.00},
        {"Vertical Blinds", "Sliding Panel Track 4 Panel", "Northlight Shades", "Coastal Window Supply", 575.00},
        {"Wood Blinds", "Real Wood 2\" Blind", "Cedar Ridge Shutters", "Great Lakes Millwork", 236.00},
        {"Wood Blinds", "Real Wood 2 1/2\" Blind", "Cedar Ridge Shutters", "Great Lakes Millwork", 254.00},
        {"Wood Blinds", "Faux Wood 2\" Blind", "Brightline Window Co.", "Coastal Window Supply", 128.00},
        {"Wood Blinds", "Faux Wood 2 1/2\" Blind", "Brightline Window Co.", "Coastal Window Supply", 141.00},
        {"Wood Blinds", "Faux Wood, Cordless", "Brightline Window Co.", "Coastal Window Supply", 167.00},
        {"Wood Blinds", "Real Wood, Routeless Slats", "Cedar Ridge Shutters", "Great Lakes Millwork", 298.00},
        {"Wood Blinds", "Real Wood, Motorized Tilt", "Cedar Ridge Shutters", "Great Lakes Millwork", 612.00},
        {"Wood Blinds", "Aluminum Mini Blind 1\"", "Brightline Window Co.", "Coastal Window Supply", 59.00},
        {"Wood Blinds", "Aluminum Micro Blind 1/2\"", "Brightline Window Co.", "Coastal Window Supply", 72.00},
        {"Wood Blinds", "Real Wood 2\" Blind, Tape Ladder", "Cedar Ridge Shutters", "Great Lakes Millwork", 281.00},
        {"Woven Shades", "Bamboo Shade", "Cedar Ridge Shutters", "Midwest Blind Distributors", 179.00},
        {"Woven Shades", "Jute Shade", "Cedar Ridge Shutters", "Midwest Blind Distributors", 214.00},
        {"Woven Shades", "Grass Shade, Privacy Liner", "Cedar Ridge Shutters", "Midwest Blind Distributors", 247.00},
        {"Woven Shades", "Reed Shade, Top Down", "Cedar Ridge Shutters", "Midwest Blind Distributors", 305.00},
    };
    QList<SampleProduct> products;
    for (const Row &r : rows) {
        products.append({QString::fromUtf8(r.type), QString::fromUtf8(r.product), QString::fromUtf8(r.manufacturer),
                         QString::fromUtf8(r.vendor), r.price});
    }
    std::stable_sort(products.begin(), products.end(), [](const SampleProduct &a, const SampleProduct &b) {
        return a.productType != b.productType ? a.productType < b.productType : a.product < b.product;
    });
    return products;
}
