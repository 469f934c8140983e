<?xml version="1.0" encoding="utf-8"?>
<!-- When it happened: a row a kind of records, a column a year, in each a disc with how many there
     were, filled where one of them is open. Drawn twice, wide and for telephones, and told in words
     for those who do not see it. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="most-years" select="10"/>

  <xsl:template name="timeline">
    <xsl:variable name="labels"><xsl:call-template name="kinds"><xsl:with-param name="as">labels</xsl:with-param></xsl:call-template></xsl:variable>
    <xsl:variable name="years"><xsl:call-template name="kinds"><xsl:with-param name="as">years</xsl:with-param></xsl:call-template></xsl:variable>
    <xsl:variable name="least"><xsl:call-template name="extreme"><xsl:with-param name="years" select="string($years)"/><xsl:with-param name="sign" select="-1"/></xsl:call-template></xsl:variable>
    <xsl:variable name="most"><xsl:call-template name="extreme"><xsl:with-param name="years" select="string($years)"/><xsl:with-param name="sign" select="1"/></xsl:call-template></xsl:variable>
    <xsl:if test="string($years)">
      <xsl:variable name="last" select="number(concat(substring($response-date, 1, 4), substring($most, 1, 4 * not($response-date))))"/>
      <xsl:variable name="first" select="concat(substring($least, 1, 4 * ($least &gt; $last - $most-years and $least &lt;= $last)),
          substring($last - $most-years + 1, 1, 4 * not($least &gt; $last - $most-years and $least &lt;= $last)))"/>
      <figure class="timeline">
        <figcaption>When it happened. A disc is a year with records and says how many; it is filled where one of them is open.<xsl:variable name="undated"><xsl:call-template name="kinds"><xsl:with-param name="as">undated</xsl:with-param></xsl:call-template></xsl:variable>
          <xsl:if test="string($undated)"><xsl:value-of select="concat(' Without a date: ', substring($undated, 3), '.')"/></xsl:if>
        </figcaption>
        <xsl:call-template name="picture">
          <xsl:with-param name="class">broad</xsl:with-param>
          <xsl:with-param name="labels" select="string($labels)"/>
          <xsl:with-param name="first" select="number($first)"/>
          <xsl:with-param name="last" select="$last"/>
          <xsl:with-param name="least" select="number($least)"/>
          <xsl:with-param name="most" select="number($most)"/>
          <xsl:with-param name="step" select="64"/>
        </xsl:call-template>
        <xsl:call-template name="picture">
          <xsl:with-param name="class">narrow</xsl:with-param>
          <xsl:with-param name="labels" select="string($labels)"/>
          <xsl:with-param name="first" select="number($first)"/>
          <xsl:with-param name="last" select="$last"/>
          <xsl:with-param name="least" select="number($least)"/>
          <xsl:with-param name="most" select="number($most)"/>
          <xsl:with-param name="step" select="30"/>
        </xsl:call-template>
        <ul class="unseen">
          <xsl:call-template name="kinds">
            <xsl:with-param name="as" select="concat('words ', $first, ' ', $last, ' 0 ')"/>
          </xsl:call-template>
        </ul>
      </figure>
    </xsl:if>
  </xsl:template>

  <!-- The least or the greatest of years with blanks behind them. -->
  <xsl:template name="extreme">
    <xsl:param name="years"/>
    <xsl:param name="sign"/>
    <xsl:param name="best" select="substring-before($years, ' ')"/>
    <xsl:variable name="year" select="substring-before($years, ' ')"/>
    <xsl:choose>
      <xsl:when test="$year">
        <xsl:call-template name="extreme">
          <xsl:with-param name="years" select="substring-after($years, ' ')"/>
          <xsl:with-param name="sign" select="$sign"/>
          <xsl:with-param name="best" select="concat(substring($year, 1, 4 * ($sign * $year &gt; $sign * $best)),
                                                     substring($best, 1, 4 * not($sign * $year &gt; $sign * $best)))"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$best"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The broad picture has its labels before the rows, the narrow one above them. The first column is
       for everything earlier, when there is anything. -->
  <xsl:template name="picture">
    <xsl:param name="class"/>
    <xsl:param name="labels"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:param name="least"/>
    <xsl:param name="most"/>
    <xsl:param name="step"/>
    <xsl:variable name="broad" select="$class = 'broad'"/>
    <xsl:variable name="rows" select="string-length($labels) - string-length(translate($labels, '|', ''))"/>
    <xsl:variable name="left" select="10 + 190 * $broad"/>
    <xsl:variable name="row" select="36 + 10 * not($broad)"/>
    <xsl:variable name="width" select="$left + $step * ($last - $first + 2)"/>
    <xsl:variable name="height" select="$row * $rows + 28"/>
    <svg class="{$class}" viewBox="0 0 {$width} {$height}"
         width="{$width}" height="{$height}" aria-hidden="true" focusable="false">
      <xsl:call-template name="year-labels">
        <xsl:with-param name="year" select="$first - 1"/>
        <xsl:with-param name="first" select="$first"/>
        <xsl:with-param name="last" select="$last"/>
        <xsl:with-param name="least" select="$least"/>
        <xsl:with-param name="most" select="$most"/>
        <xsl:with-param name="step" select="$step"/>
        <xsl:with-param name="left" select="$left"/>
        <xsl:with-param name="y" select="$height - 8"/>
      </xsl:call-template>
      <xsl:call-template name="kinds">
        <xsl:with-param name="as" select="concat($class, ' ', $first, ' ', $last, ' ', $step, ' |', $labels)"/>
      </xsl:call-template>
    </svg>
  </xsl:template>

  <xsl:template name="year-labels">
    <xsl:param name="year"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:param name="least"/>
    <xsl:param name="most"/>
    <xsl:param name="step"/>
    <xsl:param name="left"/>
    <xsl:param name="y"/>
    <xsl:if test="$year &lt;= $last">
      <xsl:if test="$year &gt;= $first or $least &lt; $first">
        <text x="{$left + $step * ($year - $first + 1.5)}" y="{$y}" text-anchor="middle">
          <xsl:choose>
            <xsl:when test="$year &lt; $first">older</xsl:when>
            <xsl:when test="$step &lt; 40"><xsl:value-of select="concat('’', substring($year, 3))"/></xsl:when>
            <xsl:otherwise><xsl:value-of select="$year"/></xsl:otherwise>
          </xsl:choose>
          <xsl:if test="$year = $last and $most &gt; $last">+</xsl:if>
        </text>
      </xsl:if>
      <xsl:call-template name="year-labels">
        <xsl:with-param name="year" select="$year + 1"/>
        <xsl:with-param name="first" select="$first"/>
        <xsl:with-param name="last" select="$last"/>
        <xsl:with-param name="least" select="$least"/>
        <xsl:with-param name="most" select="$most"/>
        <xsl:with-param name="step" select="$step"/>
        <xsl:with-param name="left" select="$left"/>
        <xsl:with-param name="y" select="$y"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- A kind's row of the picture, or in words. The plan is what is made, the first and the last year,
       the width of a year and the labels of all rows: "broad 2003 2012 64 |Defaults|Judgements|". -->
  <xsl:template name="timeline-row">
    <xsl:param name="plan"/>
    <xsl:param name="label"/>
    <xsl:param name="dates"/>
    <xsl:param name="open-dates"/>
    <xsl:variable name="as" select="substring-before($plan, ' ')"/>
    <xsl:variable name="first" select="number(substring($plan, string-length($as) + 2, 4))"/>
    <xsl:variable name="last" select="number(substring($plan, string-length($as) + 7, 4))"/>
    <xsl:variable name="step" select="number(substring-before(substring($plan, string-length($as) + 12), ' '))"/>
    <xsl:variable name="labels" select="substring-after(substring($plan, string-length($as) + 12), ' ')"/>
    <xsl:variable name="broad" select="$as = 'broad'"/>
    <xsl:variable name="before" select="substring-before($labels, concat('|', $label, '|'))"/>
    <xsl:variable name="row" select="36 + 10 * not($broad)"/>
    <xsl:variable name="top" select="$row * (string-length($before) - string-length(translate($before, '|', '')))"/>
    <xsl:variable name="left" select="10 + 190 * $broad"/>
    <xsl:choose>
      <xsl:when test="$as = 'words'">
        <li>
          <xsl:value-of select="concat($label, ':')"/>
          <xsl:call-template name="years-of">
            <xsl:with-param name="as" select="$as"/>
            <xsl:with-param name="dates" select="$dates"/>
            <xsl:with-param name="open-dates" select="$open-dates"/>
            <xsl:with-param name="year" select="$first - 1"/>
            <xsl:with-param name="first" select="$first"/>
            <xsl:with-param name="last" select="$last"/>
          </xsl:call-template>
        </li>
      </xsl:when>
      <xsl:otherwise>
        <g transform="translate(0 {$top})">
          <text x="{2 * not($broad)}" y="{12 + 11 * $broad}"><xsl:value-of select="$label"/></text>
          <path class="rail" d="M{$left} {$row - 18}h{$step * ($last - $first + 2)}"/>
          <xsl:call-template name="years-of">
            <xsl:with-param name="as" select="$as"/>
            <xsl:with-param name="dates" select="$dates"/>
            <xsl:with-param name="open-dates" select="$open-dates"/>
            <xsl:with-param name="year" select="$first - 1"/>
            <xsl:with-param name="first" select="$first"/>
            <xsl:with-param name="last" select="$last"/>
            <xsl:with-param name="x" select="$left + 0.5 * $step"/>
            <xsl:with-param name="y" select="$row - 18"/>
            <xsl:with-param name="step" select="$step"/>
          </xsl:call-template>
        </g>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Year by year from the one before the first, which stands for all earlier ones, to the last, which
       stands for all later ones too. -->
  <xsl:template name="years-of">
    <xsl:param name="as"/>
    <xsl:param name="dates"/>
    <xsl:param name="open-dates"/>
    <xsl:param name="year"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:param name="x" select="0"/>
    <xsl:param name="y"/>
    <xsl:param name="step" select="0"/>
    <xsl:if test="$year &lt;= $last">
      <xsl:variable name="from" select="$year * ($year &gt;= $first)"/>
      <xsl:variable name="to" select="$year + 10000 * ($year = $last)"/>
      <xsl:variable name="count" select="count($dates[substring(normalize-space(), 1, 4) &gt;= $from and substring(normalize-space(), 1, 4) &lt;= $to])"/>
      <xsl:if test="$count">
        <xsl:variable name="open" select="count($open-dates[substring(normalize-space(), 1, 4) &gt;= $from and substring(normalize-space(), 1, 4) &lt;= $to])"/>
        <xsl:choose>
          <xsl:when test="$as = 'words'">
            <xsl:value-of select="concat(substring(' before', 1, 7 * ($year &lt; $first)), ' ', $year + ($year &lt; $first), ': ', $count)"/>
            <xsl:if test="$open"><xsl:value-of select="concat(' (', $open, ' open)')"/></xsl:if>
            <xsl:text>;</xsl:text>
          </xsl:when>
          <xsl:otherwise>
            <g>
              <xsl:attribute name="class"><xsl:value-of select="concat('disc', substring(' open', 1, 5 * boolean($open)))"/></xsl:attribute>
              <circle cx="{$x}" cy="{$y}" r="12"/>
              <text x="{$x}" y="{$y + 4.5}" text-anchor="middle"><xsl:value-of select="$count"/></text>
            </g>
          </xsl:otherwise>
        </xsl:choose>
      </xsl:if>
      <xsl:call-template name="years-of">
        <xsl:with-param name="as" select="$as"/>
        <xsl:with-param name="dates" select="$dates"/>
        <xsl:with-param name="open-dates" select="$open-dates"/>
        <xsl:with-param name="year" select="$year + 1"/>
        <xsl:with-param name="first" select="$first"/>
        <xsl:with-param name="last" select="$last"/>
        <xsl:with-param name="x" select="$x + $step"/>
        <xsl:with-param name="y" select="$y"/>
        <xsl:with-param name="step" select="$step"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The odds of the person beside those of the population, as two bars; nothing without both. -->
  <xsl:template name="odds">
    <xsl:param name="own"/>
    <xsl:param name="population"/>
    <xsl:param name="name"/>
    <xsl:variable name="most" select="$own * ($own &gt;= $population) + $population * ($population &gt; $own)"/>
    <xsl:if test="$own &gt; 0 and $population &gt; 0">
      <figure class="odds">
        <figcaption>
          <xsl:value-of select="concat('Odds of ', $own, ' against ', $population, ' of the population')"/>
          <xsl:if test="normalize-space($name)"><xsl:value-of select="concat(' (', normalize-space($name), ')')"/></xsl:if>
        </figcaption>
        <svg viewBox="0 0 340 58" width="340" height="58" aria-hidden="true" focusable="false">
          <text x="0" y="19">This file</text>
          <rect class="own" x="84" y="4" height="20" width="{round(200 * $own div $most)}"/>
          <text x="{90 + round(200 * $own div $most)}" y="19"><xsl:value-of select="$own"/></text>
          <text x="0" y="49">Population</text>
          <rect class="all" x="84" y="34" height="20" width="{round(200 * $population div $most)}"/>
          <text x="{90 + round(200 * $population div $most)}" y="49"><xsl:value-of select="$population"/></text>
        </svg>
      </figure>
    </xsl:if>
  </xsl:template>

</xsl:stylesheet>
