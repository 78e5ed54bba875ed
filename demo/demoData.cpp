#include "demoData.h"

namespace demoData {

using namespace Qt::StringLiterals;

namespace {

std::vector<Measure> jacket()
{
    return {{u"Length"_s, 28, 31}, {u"Chest"_s, 36, 46}, {u"Waist"_s, 32, 44}, {u"Hip"_s, 36, 46},
        {u"Shoulder"_s, 16, 20}, {u"Sleeve"_s, 23, 26}, {u"Cross Back"_s, 15, 19}, {u"Neck"_s, 14, 18},
        {u"Vents"_s, 0, 0, u"Side"_s}, {u"Buttons"_s, 0, 0, u"2"_s}};
}

std::vector<Measure> trousers()
{
    return {{u"Length"_s, 38, 43}, {u"Waist"_s, 28, 42}, {u"Seat"_s, 36, 46}, {u"Thigh"_s, 22, 28}, {u"Knee"_s, 16, 22},
        {u"Bottom"_s, 13, 17}, {u"Fork"_s, 24, 30}, {u"Pleats"_s, 0, 0, u"None"_s}};
}

std::vector<Measure> together(std::vector<Measure> first, const std::vector<Measure> &second, const QString &prefix)
{
    for (Measure measure : second) {
        measure.label.prepend(prefix);
        first.push_back(measure);
    }
    return first;
}

} // namespace

std::span<const Item> items()
{
    static const std::vector<Measure> waistcoat{{u"Length"_s, 24, 27}, {u"Chest"_s, 36, 46}, {u"Waist"_s, 32, 44},
        {u"Shoulder"_s, 13, 16}, {u"Neck Depth"_s, 9, 12}, {u"Buttons"_s, 0, 0, u"5"_s}};
    static const Item table[]{
        {u"Shirt"_s, 350, 90, false, 12, 9,
            {{u"Length"_s, 28, 32}, {u"Chest"_s, 36, 46}, {u"Waist"_s, 34, 44}, {u"Shoulder"_s, 16, 20},
                {u"Sleeve"_s, 22, 26}, {u"Collar"_s, 14, 18}, {u"Cuff"_s, 8, 10}, {u"Pocket"_s, 0, 0, u"One"_s}}},
        {u"Trousers"_s, 450, 120, false, 10, 6, trousers()},
        {u"Kurta"_s, 500, 130, false, 8, 4,
            {{u"Length"_s, 36, 44}, {u"Chest"_s, 36, 46}, {u"Waist"_s, 34, 44}, {u"Shoulder"_s, 16, 20},
                {u"Sleeve"_s, 22, 26}, {u"Neck"_s, 14, 18}, {u"Side Slit"_s, 10, 15},
                {u"Collar"_s, 0, 0, u"Chinese"_s}}},
        {u"Pyjama"_s, 300, 70, false, 12, 3,
            {{u"Length"_s, 38, 43}, {u"Waist"_s, 28, 42}, {u"Seat"_s, 38, 48}, {u"Bottom"_s, 12, 20},
                {u"Belt"_s, 0, 0, u"Drawstring"_s}}},
        {u"Blazer"_s, 2800, 800, false, 2, 2, jacket()},
        {u"Suit 2 Piece"_s, 4200, 1200, false, 2, 1, together(jacket(), trousers(), u"Trousers "_s)},
        {u"Suit 3 Piece"_s, 5200, 1500, false, 1, 0,
            together(together(jacket(), trousers(), u"Trousers "_s), waistcoat, u"Waistcoat "_s)},
        {u"Waistcoat"_s, 900, 260, false, 4, 2, waistcoat},
        {u"Nehru Jacket"_s, 1500, 420, false, 3, 1,
            {{u"Length"_s, 26, 29}, {u"Chest"_s, 36, 46}, {u"Waist"_s, 34, 44}, {u"Shoulder"_s, 15, 18},
                {u"Collar"_s, 14, 18}, {u"Buttons"_s, 0, 0, u"5"_s}}},
        {u"Sherwani"_s, 6500, 1900, false, 1, 1,
            {{u"Length"_s, 40, 46}, {u"Chest"_s, 36, 46}, {u"Waist"_s, 34, 44}, {u"Hip"_s, 38, 48},
                {u"Shoulder"_s, 16, 20}, {u"Sleeve"_s, 23, 26}, {u"Collar"_s, 14, 18},
                {u"Embroidery"_s, 0, 0, u"Collar and cuffs"_s}}},
        {u"Salwar Kameez"_s, 750, 210, false, 6, 5,
            {{u"Kameez Length"_s, 36, 44}, {u"Bust"_s, 32, 42}, {u"Waist"_s, 26, 38}, {u"Hip"_s, 34, 44},
                {u"Shoulder"_s, 13, 16}, {u"Sleeve"_s, 10, 22}, {u"Neck Front"_s, 5, 8}, {u"Neck Back"_s, 4, 9},
                {u"Salwar Length"_s, 36, 41}, {u"Salwar Bottom"_s, 12, 16}}},
        {u"Blouse"_s, 400, 120, false, 8, 7,
            {{u"Length"_s, 13, 16}, {u"Bust"_s, 32, 42}, {u"Waist"_s, 26, 36}, {u"Shoulder"_s, 12, 15},
                {u"Sleeve"_s, 5, 12}, {u"Armhole"_s, 14, 18}, {u"Neck Front"_s, 6, 9}, {u"Neck Back"_s, 6, 11},
                {u"Hook"_s, 0, 0, u"Front"_s}}},
        {u"Safari Suit"_s, 1800, 520, false, 3, 0, together(jacket(), trousers(), u"Trousers "_s)},
        {u"Silk Tie"_s, 450, 0, true, 0, 0, {}},
    };
    return table;
}

std::span<const LedgerAccount> ledgerAccounts()
{
    static const LedgerAccount table[]{{u"State Bank"_s, true}, {u"Shop Rent"_s, false}, {u"Electricity"_s, false},
        {u"Alterations"_s, true}, {u"Owner's Capital"_s, true}, {u"Thread and Buttons"_s, false},
        {u"Machine Repairs"_s, false}, {u"Tea and Sundries"_s, false}, {u"Jain Thread House"_s, true},
        {u"Clock Tower School"_s, true}};
    return table;
}

std::span<const Entry> monthlyEntries()
{
    static const Entry table[]{{u"Payment"_s, u"Shop Rent"_s, u"Cash"_s, u"The month's rent"_s, 6000},
        {u"Payment"_s, u"Electricity"_s, u"State Bank"_s, {}, 1840.5},
        {u"Purchase"_s, u"Jain Thread House"_s, u"Thread and Buttons"_s, u"Thread, buttons and lining"_s, 3275.75},
        {u"Payment"_s, u"State Bank"_s, u"Cash"_s, u"Paid in"_s, 20000}};
    return table;
}

std::span<const Entry> lastDayEntries()
{
    static const Entry table[]{{u"Payment"_s, u"Jain Thread House"_s, u"State Bank"_s, u"Cheque 000412"_s, 18000},
        {u"Payment"_s, u"Machine Repairs"_s, u"Cash"_s, u"Belt and motor of the overlocker"_s, 1350},
        {u"Payment"_s, u"Tea and Sundries"_s, u"Cash"_s, {}, 640},
        {u"Payment"_s, u"Owner's Capital"_s, u"Cash"_s, u"Drawn for the house"_s, 15000},
        {u"Receipt"_s, u"Alterations"_s, u"State Bank"_s, u"Uniforms mended, by cheque"_s, 4250},
        {u"Receipt"_s, u"Alterations"_s, u"Cash"_s, u"Hems, zips and collars of the week"_s, 860},
        {u"Sales"_s, u"Clock Tower School"_s, u"Alterations"_s, u"Hems, to be paid in October"_s, 2600},
        {u"Wages"_s, u"Mohan Darji"_s, u"Wages"_s, u"Cutting of samples"_s, 450}};
    return table;
}

std::span<const QString> workers()
{
    static const QString names[]{u"Abdul Rehman"_s, u"Babu Lal"_s, u"Chandan Das"_s, u"Dinesh Kumar"_s,
        u"Imran Sheikh"_s, u"Kishan Chand"_s, u"Mohan Darji"_s, u"Suresh Pal"_s};
    return names;
}

std::span<const QString> firstNames()
{
    static const QString names[]{u"Aarti"_s, u"Ajay"_s, u"Amit"_s, u"Anita"_s, u"Arjun"_s, u"Bhavna"_s, u"Deepak"_s,
        u"Farida"_s, u"Gaurav"_s, u"Harish"_s, u"Jyoti"_s, u"Kamal"_s, u"Lata"_s, u"Manoj"_s, u"Meera"_s, u"Naveen"_s,
        u"Pooja"_s, u"Rajesh"_s, u"Sanjay"_s, u"Sunita"_s, u"Vikram"_s};
    return names;
}

std::span<const QString> lastNames()
{
    static const QString names[]{u"Agarwal"_s, u"Bhatia"_s, u"Chopra"_s, u"D'Souza"_s, u"Gupta"_s, u"Iyer"_s, u"Jain"_s,
        u"Kapoor"_s, u"Khan"_s, u"Mehta"_s, u"Nair"_s, u"Patel"_s, u"Rao"_s, u"Sharma"_s, u"Singh"_s, u"Verma"_s};
    return names;
}

std::span<const QString> streets()
{
    static const QString names[]{u"Station Road"_s, u"M.G. Road"_s, u"Civil Lines"_s, u"Gandhi Nagar"_s,
        u"Tilak Marg"_s, u"Lake View Colony"_s, u"Old Market"_s, u"Temple Street"_s};
    return names;
}

std::span<const QString> cloths()
{
    static const QString names[]{u"White cotton"_s, u"Sky blue check"_s, u"Navy worsted"_s, u"Charcoal stripe"_s,
        u"Cream silk"_s, u"Maroon brocade"_s, u"Olive drill"_s, u"Grey flannel"_s, u"Black terry wool"_s,
        u"Beige linen"_s, u"Own cloth"_s};
    return names;
}

std::span<const QString> clientNotes()
{
    static const QString notes[]{{}, {}, {}, u"Loose fitting"_s, u"Slim fitting"_s, u"Needed for a wedding"_s,
        u"Right shoulder lower"_s, u"Keep extra cloth inside"_s};
    return notes;
}

} // namespace demoData
