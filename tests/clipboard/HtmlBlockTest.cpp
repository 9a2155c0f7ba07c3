// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "clipboard/HtmlBlock.h"

namespace planview {

TEST(HtmlBlock, TheNumberBehindAShownTextIsTaken) {
    const struct {
        const char* why;
        const char* text;
        const char* html;
        ValueBlock block;
    } cases[] = {
        {"no HTML", "1\t2\n", "", {{"1", "2"}}},
        {"no numbers in it", "1\n", "<table><tr><td>2</td></tr></table>", {{"1"}}},
        {"a rounded number",
         "0.33",
         "<table><tr><td sdval=\"0.333333333333333\">0.33</td></tr></table>",
         {{0.333333333333333}}},
        {"an unformatted one", "7", "<TABLE><TR><TD SDVAL='7' SDNUM='1033;'>7</TABLE>", {{7.0}}},
        {"a currency",
         "$5.00",
         "<table><tr><td sdval=5 sdnum='1033;0;[$$-409]#,##0.00&quot; net&quot;'>$5.00",
         {{5.0}}},
        {"a date keeps its text",
         "01/08/08\t3",
         "<table><tr><td sdval=\"39455\" sdnum=\"1033;0;MM/DD/YY\">01/08/08</td><td sdval=3>3</td></tr></table>",
         {{"01/08/08", 3.0}}},
        {"a truth value too",
         "TRUE\t3",
         "<table><tr><td sdval=\"1\" sdnum=\"1033;0;BOOLEAN\">TRUE</td><td sdval=3>3</td></tr></table>",
         {{"TRUE", 3.0}}},
        {"texts come from the text",
         "a  b\t3",
         "<table><tr><td>a&nbsp; b</td><td sdval=3>3</td></tr></table>",
         {{"a  b", 3.0}}},
        {"HTML alone",
         "",
         "<table><tr><td><b>a &amp;\n &#98;<br>c</b> </td><td sdval=3>3</td></tr></table>",
         {{"a & b\nc", 3.0}}},
        {"joined cells",
         "",
         "<table><tr><td colspan=2 sdval=1>1</td><td rowspan=\"2\">x</td></tr><tr><td sdval=2>2<td>3</tr>"
         "<tr><td rowspan=2>4</td></tr><tr><td>5</td></tr></table>",
         {{1.0, "", "x"}, {2.0, "3"}, {"4"}, {"", "5"}}},
        {"only the first table", "", "<p>x<table><tr><td sdval=1>1</td></tr></table><table><tr><td sdval=2>2", {{1.0}}},
        {"a comment is no tag", "", "<table><!-- <td sdval=9> --><tr><td sdval=1>1</td></tr></table>", {{1.0}}},
        {"a number that is none", "5", "<table><tr><td sdval=\"x\">5</td></tr></table>", {{"5"}}},
        {"the number of an older spreadsheet",
         "1,235",
         "<table><tr><td x:num=\"1234.5678\">1,235</table>",
         {{1234.5678}}},
        {"the shown number itself", "1,235", "<table><tr><td x:num>1,235</td></tr></table>", {{"1,235"}}},
        {"its dates and times keep their texts",
         "",
         "<table><tr><td x:num=39455>01/08/08<td x:num=0.75>18:00<td x:num=39448>Dec-08"
         "<td x:num=39455>08.01.2008<td x:num=1234567>1.234.567</table>",
         {{"01/08/08", "18:00", "Dec-08", "08.01.2008", 1234567.0}}},
        {"the number of a spreadsheet in the browser",
         "€1,235\tx\tTRUE",
         "<table><tr><td data-sheets-value=\"{&quot;1&quot;:3,&quot;3&quot;:1234.5}\">€1,235</td>"
         "<td data-sheets-value=\"{&quot;1&quot;:2,&quot;2&quot;:&quot;x&quot;}\">x</td>"
         "<td data-sheets-value=\"{&quot;1&quot;:4,&quot;4&quot;:1}\">TRUE</td></tr></table>",
         {{1234.5, "x", "TRUE"}}},
        {"an end in the middle", "5", "<table><tr><td sdval=\"6", {{6.0}}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(BestBlock(row.text, row.html), row.block) << row.why;
    }
}

TEST(HtmlBlock, CarriesNumbersForEveryRegion) {
    EXPECT_NE(FormatHtmlBlock({{"1.234,5", "a<b&c"}})
                  .find("<td sdval=\"1234.5\" sdnum=\"1033;\">1.234,5</td><td>a&lt;b&amp;c</td>"),
              std::string::npos);
}

}  // namespace planview
