<?xml version="1.0" encoding="utf-8"?>
<!-- When it happened: a row a kind of records, a column a year, in each a disc with how many there
     were, filled where one of them is open. Drawn twice, wide and for telephones, and told in words
     for those who do not see it. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="most-years" select="10"/>

  <!-- The rows are counted once, as text: "Defaults|0 0,1 0,2 1,;Judgements|...;", for each kind the
       records and the open ones of everything earlier, then of every year. -->
  <xsl:template name="timeline">
    <xsl:variable name="years"><xsl:call-template name="kinds"><xsl:with-param name="as">years</xsl:with-param></xsl:call-template></xsl:variable>
    <xsl:if test="string($years)">
      <xsl:variable name="least"><xsl:call-template name="extreme"><xsl:with-param name="years" select="string($years)"/><xsl:with-param name="sign" select="-1"/></xsl:call-template></xsl:variable>
      <xsl:variable name="most"><xsl:call-template name="extreme"><xsl:with-param name="years" select="string($years)"/><xsl:with-param name="sign" select="1"/></xsl:call-template></xsl:variable>
      <xsl:variable name="last" select="number(concat(substring($response-date, 1, 4), substring($most, 1, 4 * not($response-date))))"/>
      <xsl:variable name="all-fit" select="$least &gt; $last - $most-years and $least &lt;= $last"/>
      <xsl:variable name="first" select="number(concat(substring($least, 1, 4 * $all-fit), substring($last - $most-years + 1, 1, 4 * not($all-fit))))"/>
      <xsl:variable name="rows"><xsl:call-template name="kinds"><xsl:with-param name="as" select="concat($first, ' ', $last)"/></xsl:call-template></xsl:variable>
      <xsl:variable name="undated"><xsl:call-template name="kinds"><xsl:with-param name="as">undated</xsl:with-param></xsl:call-template></xsl:variable>
      <figure class="timeline">
        <figcaption>
          <xsl:text>When it happened. A disc is a year with records and says how many; it is filled where one of them is open.</xsl:text>
          <xsl:if test="string($undated)"><xsl:value-of select="concat(' Without a date: ', substring($undated, 3), '.')"/></xsl:if>
        </figcaption>
        <xsl:call-template name="picture">
          <xsl:with-param name="class">broad</xsl:with-param>
          <xsl:with-param name="rows" select="string($rows)"/>
          <xsl:with-param name="first" select="$first"/>
          <xsl:with-param name="last" select="$last"/>
          <xsl:with-param name="older" select="$least &lt; $first"/>
          <xsl:with-param name="later" select="$most &gt; $last"/>
        </xsl:call-template>
        <xsl:call-template name="picture">
          <xsl:with-param name="class">narrow</xsl:with-param>
          <xsl:with-param name="rows" select="string($rows)"/>
          <xsl:with-param name="first" select="$first"/>
          <xsl:with-param name="last" select="$last"/>
          <xsl:with-param name="older" select="$least &lt; $first"/>
          <xsl:with-param name="later" select="$most &gt; $last"/>
        </xsl:call-template>
        <ul class="unseen">
          <xsl:call-template name="told-rows">
            <xsl:with-param name="rows" select="string($rows)"/>
            <xsl:with-param name="first" select="$first"/>
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
        <xsl:variable name="better" select="$sign * $year &gt; $sign * $best"/>
        <xsl:call-template name="extreme">
          <xsl:with-param name="years" select="substring-after($years, ' ')"/>
          <xsl:with-param name="sign" select="$sign"/>
          <xsl:with-param name="best" select="concat(substring($year, 1, 4 * $better), substring($best, 1, 4 * not($better)))"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$best"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Records and open ones year by year: from the year before the first, which stands for all earlier
       ones, to the last, which stands for all later ones too. -->
  <xsl:template name="years-of">
    <xsl:param name="dates"/>
    <xsl:param name="open-dates"/>
    <xsl:param name="year"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:if test="$year &lt;= $last">
      <xsl:variable name="from" select="$year * ($year &gt;= $first)"/>
      <xsl:variable name="to" select="$year + 10000 * ($year = $last)"/>
      <xsl:variable name="these" select="$dates[substring(normalize-space(), 1, 4) &gt;= $from and substring(normalize-space(), 1, 4) &lt;= $to]"/>
      <xsl:value-of select="concat(count($these), ' ')"/>
      <xsl:choose>
        <xsl:when test="$these"><xsl:value-of select="count($open-dates[substring(normalize-space(), 1, 4) &gt;= $from and substring(normalize-space(), 1, 4) &lt;= $to])"/></xsl:when>
        <xsl:otherwise>0</xsl:otherwise>
      </xsl:choose>
      <xsl:text>,</xsl:text>
      <xsl:call-template name="years-of">
        <xsl:with-param name="dates" select="$dates"/>
        <xsl:with-param name="open-dates" select="$open-dates"/>
        <xsl:with-param name="year" select="$year + 1"/>
        <xsl:with-param name="first" select="$first"/>
        <xsl:with-param name="last" select="$last"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The broad picture has its labels before the rows, the narrow one above them. -->
  <xsl:template name="picture">
    <xsl:param name="class"/>
    <xsl:param name="rows"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:param name="older"/>
    <xsl:param name="later"/>
    <xsl:variable name="broad" select="$class = 'broad'"/>
    <xsl:variable name="step" select="30 + 34 * $broad"/>
    <xsl:variable name="left" select="10 + 190 * $broad"/>
    <xsl:variable name="row" select="50 - 14 * $broad"/>
    <xsl:variable name="width" select="$left + $step * ($last - $first + 2)"/>
    <xsl:variable name="height" select="28 + $row * (string-length($rows) - string-length(translate($rows, ';', '')))"/>
    <svg class="{$class}" viewBox="0 0 {$width} {$height}" width="{$width}" height="{$height}" aria-hidden="true" focusable="false">
      <xsl:call-template name="picture-rows">
        <xsl:with-param name="rows" select="$rows"/>
        <xsl:with-param name="broad" select="$broad"/>
        <xsl:with-param name="step" select="$step"/>
        <xsl:with-param name="left" select="$left"/>
        <xsl:with-param name="row" select="$row"/>
        <xsl:with-param name="width" select="$width"/>
      </xsl:call-template>
      <xsl:call-template name="year-labels">
        <xsl:with-param name="year" select="$first - $older"/>
        <xsl:with-param name="first" select="$first"/>
        <xsl:with-param name="last" select="$last"/>
        <xsl:with-param name="later" select="$later"/>
        <xsl:with-param name="step" select="$step"/>
        <xsl:with-param name="x" select="$left + $step * (1.5 - $older)"/>
        <xsl:with-param name="y" select="$height - 8"/>
      </xsl:call-template>
    </svg>
  </xsl:template>

  <xsl:template name="picture-rows">
    <xsl:param name="rows"/>
    <xsl:param name="broad"/>
    <xsl:param name="step"/>
    <xsl:param name="left"/>
    <xsl:param name="row"/>
    <xsl:param name="width"/>
    <xsl:param name="top" select="0"/>
    <xsl:variable name="this" select="substring-before($rows, ';')"/>
    <xsl:if test="$this">
      <xsl:variable name="y" select="$top + $row - 18"/>
      <text x="{2 * not($broad)}" y="{$top + 12 + 11 * $broad}"><xsl:value-of select="substring-before($this, '|')"/></text>
      <path class="rail" d="M{$left} {$y}H{$width}"/>
      <xsl:call-template name="discs">
        <xsl:with-param name="years" select="substring-after($this, '|')"/>
        <xsl:with-param name="x" select="$left + 0.5 * $step"/>
        <xsl:with-param name="y" select="$y"/>
        <xsl:with-param name="step" select="$step"/>
      </xsl:call-template>
      <xsl:call-template name="picture-rows">
        <xsl:with-param name="rows" select="substring-after($rows, ';')"/>
        <xsl:with-param name="broad" select="$broad"/>
        <xsl:with-param name="step" select="$step"/>
        <xsl:with-param name="left" select="$left"/>
        <xsl:with-param name="row" select="$row"/>
        <xsl:with-param name="width" select="$width"/>
        <xsl:with-param name="top" select="$top + $row"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template name="discs">
    <xsl:param name="years"/>
    <xsl:param name="x"/>
    <xsl:param name="y"/>
    <xsl:param name="step"/>
    <xsl:variable name="this" select="substring-before($years, ',')"/>
    <xsl:if test="$this">
      <xsl:variable name="count" select="substring-before($this, ' ')"/>
      <xsl:if test="$count &gt; 0">
        <g class="disc{substring(' open', 1, 5 * (substring-after($this, ' ') &gt; 0))}">
          <circle cx="{$x}" cy="{$y}" r="12"/>
          <text x="{$x}" y="{$y + 4.5}" text-anchor="middle"><xsl:value-of select="$count"/></text>
        </g>
      </xsl:if>
      <xsl:call-template name="discs">
        <xsl:with-param name="years" select="substring-after($years, ',')"/>
        <xsl:with-param name="x" select="$x + $step"/>
        <xsl:with-param name="y" select="$y"/>
        <xsl:with-param name="step" select="$step"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template name="year-labels">
    <xsl:param name="year"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:param name="later"/>
    <xsl:param name="step"/>
    <xsl:param name="x"/>
    <xsl:param name="y"/>
    <xsl:if test="$year &lt;= $last">
      <text x="{$x}" y="{$y}" text-anchor="middle">
        <xsl:choose>
          <xsl:when test="$year &lt; $first">older</xsl:when>
          <xsl:when test="$step &lt; 40"><xsl:value-of select="concat('’', substring($year, 3))"/></xsl:when>
          <xsl:otherwise><xsl:value-of select="$year"/></xsl:otherwise>
        </xsl:choose>
        <xsl:if test="$year = $last and $later">+</xsl:if>
      </text>
      <xsl:call-template name="year-labels">
        <xsl:with-param name="year" select="$year + 1"/>
        <xsl:with-param name="first" select="$first"/>
        <xsl:with-param name="last" select="$last"/>
        <xsl:with-param name="later" select="$later"/>
        <xsl:with-param name="step" select="$step"/>
        <xsl:with-param name="x" select="$x + $step"/>
        <xsl:with-param name="y" select="$y"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The same in words: "Defaults: 2009: 1; 2011: 2 (1 open);". -->
  <xsl:template name="told-rows">
    <xsl:param name="rows"/>
    <xsl:param name="first"/>
    <xsl:variable name="this" select="substring-before($rows, ';')"/>
    <xsl:if test="$this">
      <li>
        <xsl:value-of select="concat(substring-before($this, '|'), ':')"/>
        <xsl:call-template name="told-years">
          <xsl:with-param name="years" select="substring-after($this, '|')"/>
          <xsl:with-param name="year" select="$first - 1"/>
          <xsl:with-param name="first" select="$first"/>
        </xsl:call-template>
      </li>
      <xsl:call-template name="told-rows">
        <xsl:with-param name="rows" select="substring-after($rows, ';')"/>
        <xsl:with-param name="first" select="$first"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template name="told-years">
    <xsl:param name="years"/>
    <xsl:param name="year"/>
    <xsl:param name="first"/>
    <xsl:variable name="this" select="substring-before($years, ',')"/>
    <xsl:if test="$this">
      <xsl:if test="substring-before($this, ' ') &gt; 0">
        <xsl:value-of select="concat(substring(' before', 1, 7 * ($year &lt; $first)), ' ', $year + ($year &lt; $first), ': ', substring-before($this, ' '))"/>
        <xsl:if test="substring-after($this, ' ') &gt; 0">
          <xsl:value-of select="concat(' (', substring-after($this, ' '), ' open)')"/>
        </xsl:if>
        <xsl:text>;</xsl:text>
      </xsl:if>
      <xsl:call-template name="told-years">
        <xsl:with-param name="years" select="substring-after($years, ',')"/>
        <xsl:with-param name="year" select="$year + 1"/>
        <xsl:with-param name="first" select="$first"/>
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
