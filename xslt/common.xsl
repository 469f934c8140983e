<?xml version="1.0" encoding="utf-8"?>
<!-- What the reports of all countries share: the page, dates, amounts, facts and cells. Plain
     XSLT 1.0, so that every processor runs it. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:include href="style.xsl"/>

  <xsl:output method="html" encoding="utf-8" indent="no" doctype-system="about:legacy-compat"/>

  <xsl:variable name="small" select="'abcdefghijklmnopqrstuvwxyz'"/>
  <xsl:variable name="capital" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="months" select="'JanFebMarAprMayJunJulAugSepOctNovDec'"/>

  <!-- What the host knows and a reply does not say; each may be missing. `response-date`
       (yyyy-mm-dd) is the day from which periods count back, `service` and `product` are names,
       `directors-counted` is "yes" where a company's figures include its directors'. -->
  <xsl:param name="response-date"/>
  <xsl:param name="service"/>
  <xsl:param name="product"/>
  <xsl:param name="directors-counted"/>

  <!-- The page. A sheet says what is in it by the named templates that are called here. -->
  <xsl:template match="/">
    <xsl:variable name="eyebrow"><xsl:call-template name="eyebrow"/></xsl:variable>
    <xsl:variable name="title"><xsl:call-template name="title"/></xsl:variable>
    <xsl:variable name="lede"><xsl:call-template name="lede"/></xsl:variable>
    <html lang="{$lang}">
      <head>
        <meta name="viewport" content="width=device-width, initial-scale=1"/>
        <meta name="color-scheme" content="light dark"/>
        <meta http-equiv="Content-Security-Policy"
              content="default-src 'none'; style-src 'unsafe-inline'"/>
        <title><xsl:value-of select="concat($eyebrow, ': ', $title)"/></title>
        <xsl:call-template name="style"/>
      </head>
      <body>
        <!-- On paper this stands at the head of every page. -->
        <div class="running" aria-hidden="true">
          <div>
            <span><xsl:value-of select="$title"/></span>
            <span><xsl:copy-of select="$lede"/></span>
          </div>
        </div>
        <header class="masthead">
          <p class="eyebrow"><xsl:value-of select="$eyebrow"/></p>
          <h1><xsl:value-of select="$title"/></h1>
          <xsl:if test="string($lede)"><p class="lede"><xsl:copy-of select="$lede"/></p></xsl:if>
          <xsl:variable name="contents"><xsl:call-template name="contents"/></xsl:variable>
          <xsl:if test="string($contents)">
            <nav class="contents" aria-label="Contents"><ul><xsl:copy-of select="$contents"/></ul></nav>
          </xsl:if>
        </header>
        <main><xsl:call-template name="body"/></main>
        <footer class="foot"><p>
          <xsl:if test="normalize-space(/BCAmessage/@service-request-id)">
            <xsl:value-of select="concat('Bureau request ', normalize-space(/BCAmessage/@service-request-id), '. ')"/>
          </xsl:if>
          <xsl:if test="$product"><xsl:value-of select="concat('Product ', $product, '. ')"/></xsl:if>
          <xsl:text>Confidential: contains personal credit information.</xsl:text>
        </p></footer>
      </body>
    </html>
  </xsl:template>

  <!-- "Report of 15 Jun 2012", where the day is known; then whose report it is. -->
  <xsl:template name="whose">
    <xsl:param name="born"/>
    <xsl:param name="number"/>
    <xsl:param name="file"/>
    <xsl:variable name="born-text" select="normalize-space($born)"/>
    <xsl:if test="$response-date">
      <xsl:text>Report of </xsl:text>
      <xsl:call-template name="date"><xsl:with-param name="text" select="$response-date"/></xsl:call-template>
    </xsl:if>
    <xsl:if test="$born-text">
      <xsl:value-of select="concat(substring(', ', 1, 2 * boolean($response-date)), 'born ')"/>
      <xsl:call-template name="date"><xsl:with-param name="text" select="$born-text"/></xsl:call-template>
    </xsl:if>
    <xsl:if test="normalize-space($number)">
      <xsl:value-of select="concat(substring(', ', 1, 2 * boolean($response-date)),
                                   'company number ', normalize-space($number))"/>
    </xsl:if>
    <xsl:if test="normalize-space($file)">
      <xsl:value-of select="concat(substring(', ', 1, 2 * boolean($response-date or $born-text
                                                                  or normalize-space($number))),
                                   'bureau file ', normalize-space($file))"/>
    </xsl:if>
  </xsl:template>

  <xsl:template name="heading">
    <xsl:param name="level"/>
    <xsl:param name="text"/>
    <xsl:element name="h{$level}"><xsl:copy-of select="$text"/></xsl:element>
  </xsl:template>

  <!-- A value: a date, an amount, a type word, or text as it stands, line breaks within included.
       Nothing for an empty one. "made" is a fragment that the sheet made itself; never a node of
       the reply, whose elements would become part of the page. -->
  <xsl:template name="value">
    <xsl:param name="value"/>
    <xsl:param name="as" select="'text'"/>
    <xsl:variable name="text" select="normalize-space($value)"/>
    <xsl:choose>
      <xsl:when test="$text = ''"/>
      <xsl:when test="$as = 'made'"><xsl:copy-of select="$value"/></xsl:when>
      <xsl:when test="$as = 'date'">
        <xsl:call-template name="date"><xsl:with-param name="text" select="$text"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$as = 'amount'">
        <xsl:call-template name="amount"><xsl:with-param name="text" select="$text"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$as = 'word'">
        <xsl:call-template name="word"><xsl:with-param name="text" select="$text"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$as = 'marked'">
        <xsl:call-template name="marked"><xsl:with-param name="text" select="$text"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="contains($value, '&#10;')">
        <xsl:variable name="first" select="substring($text, 1, 1)"/>
        <xsl:value-of select="concat($first, substring-after($value, $first))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- 2012-06-05 as 5 Jun 2012; anything that is no such date as it stands. -->
  <xsl:template name="date">
    <xsl:param name="text"/>
    <xsl:variable name="day" select="substring($text, 1, 10)"/>
    <xsl:variable name="month" select="number(substring($text, 6, 2))"/>
    <xsl:choose>
      <xsl:when test="translate($day, '0123456789', '##########') = '####-##-##'
                      and $month &gt; 0 and $month &lt; 13
                      and number(substring($text, 9, 2)) &gt; 0 and number(substring($text, 9, 2)) &lt; 32
                      and (string-length($text) = 10 or contains(' TZ+', substring($text, 11, 1)))">
        <time datetime="{$day}">
          <xsl:value-of select="concat(number(substring($text, 9, 2)), ' ',
                                       substring($months, 3 * $month - 2, 3), ' ',
                                       substring($text, 1, 4))"/>
        </time>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- 15000 as $15,000.00; anything that is no number as it stands. -->
  <xsl:template name="amount">
    <xsl:param name="text"/>
    <xsl:variable name="plain" select="translate($text, '$, ', '')"/>
    <xsl:variable name="number" select="number($plain)"/>
    <xsl:choose>
      <!-- Some processors read 1e5, and none is exact beyond 15 digits. -->
      <xsl:when test="string($number) = 'NaN' or translate($plain, '0123456789.-', '') != ''
                      or string-length($plain) &gt; 16">
        <xsl:value-of select="$text"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:if test="$number &lt; 0">-</xsl:if>
        <xsl:value-of select="concat('$', format-number($number * (1 - 2 * ($number &lt; 0)), '#,##0.00'))"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The sum of amounts, which may have a $ and commas; what is no amount adds nothing. In halves,
       so that the calls do not lie as deep as there are amounts. -->
  <xsl:template name="total">
    <xsl:param name="of"/>
    <xsl:variable name="count" select="count($of)"/>
    <xsl:choose>
      <xsl:when test="not($of[contains(., ',') or contains(., '$')])">
        <xsl:value-of select="sum($of[number() = number()])"/>
      </xsl:when>
      <xsl:when test="$count = 1">
        <xsl:variable name="number" select="number(translate($of, '$, ', ''))"/>
        <xsl:value-of select="concat(substring('0', 1, $number != $number),
                                     substring($number, 1, 30 * ($number = $number)))"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="half" select="floor($count div 2)"/>
        <xsl:variable name="low"><xsl:call-template name="total">
          <xsl:with-param name="of" select="$of[position() &lt;= $half]"/>
        </xsl:call-template></xsl:variable>
        <xsl:variable name="high"><xsl:call-template name="total">
          <xsl:with-param name="of" select="$of[position() &gt; $half]"/>
        </xsl:call-template></xsl:variable>
        <xsl:value-of select="$low + $high"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A type as the bureau writes it, default-judgement, as people do: Default judgement. -->
  <xsl:template name="word">
    <xsl:param name="text"/>
    <xsl:value-of select="concat(translate(substring($text, 1, 1), $small, $capital),
                                 translate(substring($text, 2), '-_', '  '))"/>
  </xsl:template>

  <!-- The description of a code in a table of the form |CODE=Description|CODE=...|, whose codes are
       in capitals; the code itself, in any letter case, where the table lacks it. -->
  <xsl:template name="look-up">
    <xsl:param name="table"/>
    <xsl:param name="code"/>
    <xsl:variable name="found"
                  select="substring-before(substring-after($table,
                            concat('|', translate($code, $small, $capital), '=')), '|')"/>
    <xsl:choose>
      <xsl:when test="$found"><xsl:value-of select="$found"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="$code"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- One fact of a dl: label and value. Nothing for an empty value. -->
  <xsl:template name="fact">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:param name="as" select="'text'"/>
    <xsl:param name="class"/>
    <xsl:if test="normalize-space($value)">
      <div>
        <xsl:if test="$class"><xsl:attribute name="class"><xsl:value-of select="$class"/></xsl:attribute></xsl:if>
        <dt><xsl:value-of select="$label"/></dt>
        <dd>
          <xsl:call-template name="value">
            <xsl:with-param name="value" select="$value"/>
            <xsl:with-param name="as" select="$as"/>
          </xsl:call-template>
        </dd>
      </div>
    </xsl:if>
  </xsl:template>

  <!-- The head of a wide table; `columns` is "Label|Label|", an amount's label with a $ before. On
       a telephone the rows of wide tables stack, so the roles are written out. -->
  <xsl:template name="table-head">
    <xsl:param name="columns"/>
    <thead role="rowgroup">
      <tr role="row">
        <xsl:call-template name="column-heads">
          <xsl:with-param name="columns" select="$columns"/>
        </xsl:call-template>
      </tr>
    </thead>
  </xsl:template>

  <xsl:template name="column-heads">
    <xsl:param name="columns"/>
    <xsl:if test="contains($columns, '|')">
      <xsl:variable name="label" select="substring-before($columns, '|')"/>
      <th scope="col" role="columnheader">
        <xsl:if test="starts-with($label, '$')"><xsl:attribute name="class">amount</xsl:attribute></xsl:if>
        <xsl:value-of select="translate($label, '$', '')"/>
      </th>
      <xsl:call-template name="column-heads">
        <xsl:with-param name="columns" select="substring-after($columns, '|')"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- A cell of a wide table; with `head` it names its row, if there is anything in it. -->
  <xsl:template name="cell">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:param name="as" select="'text'"/>
    <xsl:param name="class"/>
    <xsl:param name="head" select="false()"/>
    <xsl:variable name="names" select="$head and normalize-space($value)"/>
    <xsl:variable name="element"><xsl:choose>
      <xsl:when test="$names">th</xsl:when>
      <xsl:otherwise>td</xsl:otherwise>
    </xsl:choose></xsl:variable>
    <xsl:element name="{$element}">
      <xsl:choose>
        <xsl:when test="$names">
          <xsl:attribute name="scope">row</xsl:attribute>
          <xsl:attribute name="role">rowheader</xsl:attribute>
        </xsl:when>
        <xsl:otherwise><xsl:attribute name="role">cell</xsl:attribute></xsl:otherwise>
      </xsl:choose>
      <xsl:attribute name="data-label"><xsl:value-of select="$label"/></xsl:attribute>
      <xsl:if test="$class or $as = 'amount'">
        <xsl:attribute name="class">
          <xsl:value-of select="$class"/>
          <xsl:if test="$as = 'amount'">amount</xsl:if>
        </xsl:attribute>
      </xsl:if>
      <xsl:call-template name="value">
        <xsl:with-param name="value" select="$value"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
    </xsl:element>
  </xsl:template>

  <!-- "1 default", "2 defaults". -->
  <xsl:template name="counted">
    <xsl:param name="count"/>
    <xsl:param name="noun"/>
    <xsl:value-of select="concat($count, ' ', $noun)"/>
    <xsl:if test="$count != 1">s</xsl:if>
  </xsl:template>

</xsl:stylesheet>
