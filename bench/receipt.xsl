<?xml version="1.0" encoding="UTF-8"?>
<!--
  Prints the benchmark's receipt job: xsltproc -o script.txt receipt.xsl job.xml

  Writes the script that the print program writes for it with the settings in home/, all print flags on. The
  widths of those settings stand here as entities, not as variables: they are constants once the stylesheet is
  compiled, and nothing is looked up for each row. The column titles, the separator and the TOTAL line are
  written out for these widths.
-->
<!DOCTYPE xsl:stylesheet [
<!ENTITY line "nofis riga='">
<!ENTITY end "'&#38;#13;&#38;#10;">

<!ENTITY quantity "4">
<!ENTITY price "8">
<!ENTITY total "8">
<!ENTITY name "17">
<!-- Lines are centred on the register's own 32 characters; the closing quote and the line end take three. -->
<!ENTITY centred "29">

<!ENTITY blanks "                                        ">
<!ENTITY dots "........................................">
]>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

<xsl:output method="text" encoding="UTF-8"/>

<xsl:template match="/*">
  <xsl:apply-templates select="*[not(self::receipe or self::total or self::notPaid)]"/>
  <xsl:if test="receipe">
    <xsl:text>&line; Num Description           Price  Amount&end;</xsl:text>
    <xsl:for-each select="receipe">
      <xsl:text>&line;</xsl:text>
      <xsl:value-of select="concat(
        substring('&blanks;', 1, &quantity; - string-length(@number)), @number, ' x ',
        substring(concat(@name, '&dots;'), 1, &name;),
        substring('&dots;', 1, &price; - string-length(@price)), @price,
        substring('&blanks;', 1, &total; - string-length(@totalPrice)), @totalPrice)"/>
      <xsl:text>&end;</xsl:text>
    </xsl:for-each>
  </xsl:if>
  <xsl:apply-templates select="total | notPaid"/>
  <xsl:text>nofis chiudi&#13;&#10;</xsl:text>
</xsl:template>

<xsl:template match="method">
  <xsl:text>nofis apri&#13;&#10;</xsl:text>
</xsl:template>

<xsl:template match="geometry">
  <xsl:text>&line;&end;&line;&end;</xsl:text>
</xsl:template>

<xsl:template match="headers">
  <xsl:for-each select="@*">
    <xsl:text>&line;</xsl:text>
    <xsl:value-of select="."/>
    <xsl:text>&end;</xsl:text>
  </xsl:for-each>
  <xsl:call-template name="separator"/>
  <xsl:call-template name="centred">
    <xsl:with-param name="text" select="../printers/@name"/>
  </xsl:call-template>
  <xsl:call-template name="separator"/>
</xsl:template>

<xsl:template match="company">
  <xsl:for-each select="@*">
    <xsl:call-template name="centred">
      <xsl:with-param name="text" select="."/>
    </xsl:call-template>
  </xsl:for-each>
  <xsl:call-template name="separator"/>
</xsl:template>

<xsl:template match="receipt">
  <xsl:text>&line; Serial Number: </xsl:text>
  <xsl:value-of select="@serialnumber"/>
  <xsl:text>&end;</xsl:text>
  <xsl:call-template name="separator"/>
</xsl:template>

<xsl:template match="orderinfo">
  <xsl:text>&line; Date: </xsl:text>
  <xsl:value-of select="@date"/>
  <xsl:text>&end;&line; Time: </xsl:text>
  <xsl:value-of select="@time"/>
  <xsl:text>&end;&line; Table: </xsl:text>
  <xsl:value-of select="@table"/>
  <xsl:text>&end;&line; Waiter: </xsl:text>
  <xsl:value-of select="@waiter"/>
  <xsl:text>&end;&line; Note: </xsl:text>
  <xsl:value-of select="@note"/>
  <xsl:text>&end;&line; Credit: </xsl:text>
  <xsl:value-of select="@credit"/>
  <xsl:text>&end;</xsl:text>
  <xsl:call-template name="separator"/>
</xsl:template>

<xsl:template match="customer">
  <xsl:text>&line;CUSTOMER&end;&line; </xsl:text>
  <xsl:value-of select="@name"/>
  <xsl:text>&end;</xsl:text>
  <xsl:call-template name="address">
    <xsl:with-param name="fields" select="concat(@billingaddress, ',')"/>
  </xsl:call-template>
  <xsl:call-template name="address">
    <xsl:with-param name="fields" select="concat(@deliveryaddress, ',')"/>
  </xsl:call-template>
  <xsl:text>&line; Telephone: </xsl:text>
  <xsl:value-of select="@telephone"/>
  <xsl:text>&end;&line; License Number: </xsl:text>
  <xsl:value-of select="@licensenumber"/>
  <xsl:text>&end;&line; Fiscal Code: </xsl:text>
  <xsl:value-of select="@fiscalcode"/>
  <xsl:text>&end;</xsl:text>
  <xsl:call-template name="separator"/>
</xsl:template>

<xsl:template match="total">
  <xsl:text>&line;&end;&line;     TOTAL......................</xsl:text>
  <xsl:value-of select="concat(substring('&blanks;', 1, &total; - string-length(@price)), @price)"/>
  <xsl:text>&end;</xsl:text>
</xsl:template>

<xsl:template match="notPaid">
  <xsl:text>&line;&end;&line;    Amount not paid: </xsl:text>
  <xsl:value-of select="@price"/>
  <xsl:text>&end;</xsl:text>
</xsl:template>

<xsl:template name="separator">
  <xsl:text>&line;========================================&end;</xsl:text>
</xsl:template>

<xsl:template name="centred">
  <xsl:param name="text"/>
  <xsl:text>&line;</xsl:text>
  <xsl:value-of select="concat(
    substring('&blanks;', 1, floor((&centred; - string-length($text)) div 2)), $text)"/>
  <xsl:text>&end;</xsl:text>
</xsl:template>

<!-- An address is a list of fields, each ended by a comma; the first empty one ends it. -->
<xsl:template name="address">
  <xsl:param name="fields"/>
  <xsl:variable name="field" select="substring-before($fields, ',')"/>
  <xsl:if test="$field">
    <xsl:text>&line; </xsl:text>
    <xsl:value-of select="normalize-space($field)"/>
    <xsl:text>&end;</xsl:text>
    <xsl:call-template name="address">
      <xsl:with-param name="fields" select="substring-after($fields, ',')"/>
    </xsl:call-template>
  </xsl:if>
</xsl:template>

</xsl:stylesheet>
