#ifndef ZELMORA_TESTS_SUPPORT_INVOICEROWS_H
#define ZELMORA_TESTS_SUPPORT_INVOICEROWS_H

#include "support/job.h"

// What a full invoice and a summary invoice print alike.

inline Element taxes()
{
    return {"totals", {{"total", "12.20"}, {"tax", "2.20"}, {"taxrate", "22"}, {"taxable", "10.00"}}};
}

/// The calls that print taxes().
inline QStringList taxBlock()
{
    return {"setBold()",
            R"(println(""))",
            R"(println("    Taxable..............  10.00"))",
            R"(println("    TaxRate..............     22"))",
            R"(println("    Tax..................   2.20"))",
            R"(println("    TOTAL................  12.20"))",
            "setCharSize()"};
}

inline void addInvoiceRows()
{
    addJob("the tax block: bold before the empty line, size after the total", {taxes()}, taxBlock());
    addJob("the total of the tax block is not the attribute price",
           {{"totals", {{"price", "12.20"}, {"totalPrice", "12.20"}}}},
           {"setBold()", R"(println(""))", R"(println("    Taxable..............       "))",
            R"(println("    TaxRate..............       "))", R"(println("    Tax..................       "))",
            R"(println("    TOTAL................       "))", "setCharSize()"});
    addJob("the customer block", {{"customer", {{"name", "Rossi"}}}},
           {R"(println("CUSTOMER"))", R"(println(1, "Rossi"))", separator()});
    addJob("the invoice's number is a section", {{"invoice", {{"serialnumber", "7"}}}},
           {R"(print(1, "Invoice Number:"))", R"(println(1, "7"))", separator()});
}

#endif
