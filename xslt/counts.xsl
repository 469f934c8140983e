<?xml version="1.0" encoding="utf-8"?>
<!-- How many records of each kind there are. A sheet lists its kinds once, in a named template
     "kinds" that calls "kind" for each and hands on what is asked for (`as`): the headline, the table
     and the timeline are made from that one list. What counts as adverse, open and owed is counted as
     the component's own statistics count it. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- The days from which periods count, as numbers: 20110615. -->
  <xsl:variable name="today" select="number(translate($response-date, '-', ''))"/>

  <!-- One kind of records:
       records     all of them              dates        the nodes with their dates
       adverse     those in the headline    open-dates   the dates of the open ones
       open        those not paid or not discharged
       untold      counted ones of which the statistics do not say whether they are open; `tells` is
                   false where they say it of none
       beside      adverse ones that the statistics leave out, beside-open the open ones of these
       listed      their amounts            owed         what is left to pay of them
       apart       what is left to pay without being part of the headline's amount
       `ends` is false for a kind that is neither open nor closed. Asked for two years,
       `as` "2003 2012", it gives the row of the timeline. -->
  <xsl:template name="kind">
    <xsl:param name="as"/>
    <xsl:param name="label"/>
    <xsl:param name="records"/>
    <xsl:param name="dates"/>
    <xsl:param name="adverse" select="/.."/>
    <xsl:param name="open" select="/.."/>
    <xsl:param name="open-dates" select="/.."/>
    <xsl:param name="untold" select="/.."/>
    <xsl:param name="beside" select="/.."/>
    <xsl:param name="beside-open" select="/.."/>
    <xsl:param name="listed" select="/.."/>
    <xsl:param name="owed" select="/.."/>
    <xsl:param name="apart" select="/.."/>
    <xsl:param name="ends" select="true()"/>
    <xsl:param name="tells" select="true()"/>
    <xsl:choose>
      <xsl:when test="$as = 'tally'">
        <xsl:variable name="sum"><xsl:call-template name="total"><xsl:with-param name="of" select="$owed"/></xsl:call-template></xsl:variable>
        <xsl:variable name="more"><xsl:call-template name="total"><xsl:with-param name="of" select="$apart"/></xsl:call-template></xsl:variable>
        <xsl:value-of select="concat(count($adverse), ' ', count($open), ' ', $sum, ' ', count($beside), ' ',
                                     count($beside-open), ' ', $more, ';')"/>
      </xsl:when>
      <xsl:when test="$as = 'beside'">
        <xsl:if test="$beside"><xsl:value-of select="concat(', ', $label, ' (', count($beside), ')')"/></xsl:if>
      </xsl:when>
      <xsl:when test="$as = 'untold'">
        <xsl:if test="$untold"><xsl:value-of select="concat(', ', $label, ' (', count($untold), ')')"/></xsl:if>
      </xsl:when>
      <xsl:when test="$as = 'row'">
        <xsl:call-template name="count-row">
          <xsl:with-param name="label" select="$label"/>
          <xsl:with-param name="count" select="count($records)"/>
          <xsl:with-param name="open"><xsl:choose>
            <xsl:when test="not($ends) or not($adverse | $beside)"/>
            <xsl:when test="not($tells)">not told</xsl:when>
            <xsl:otherwise><xsl:value-of select="count($open | $beside-open)"/></xsl:otherwise>
          </xsl:choose></xsl:with-param>
          <xsl:with-param name="listed" select="$listed"/>
          <xsl:with-param name="owed" select="$owed | $apart"/>
          <xsl:with-param name="dates" select="$dates"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="$as = 'undated'">
        <xsl:if test="count($records) &gt; count($dates[normalize-space()])">
          <xsl:value-of select="concat(', ', $label, ' (', count($records) - count($dates[normalize-space()]), ')')"/>
        </xsl:if>
      </xsl:when>
      <xsl:when test="not($dates)"/>
      <xsl:when test="$as = 'years'">
        <xsl:for-each select="$dates[substring(normalize-space(), 1, 4) &gt; 1800]">
          <xsl:sort select="substring(normalize-space(), 1, 4)" data-type="number"/>
          <xsl:if test="position() = 1 or position() = last()">
            <xsl:value-of select="concat(substring(normalize-space(), 1, 4), ' ')"/>
          </xsl:if>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat($label, '|')"/>
        <xsl:call-template name="years-of">
          <xsl:with-param name="dates" select="$dates"/>
          <xsl:with-param name="open-dates" select="$open-dates"/>
          <xsl:with-param name="year" select="number(substring-before($as, ' ')) - 1"/>
          <xsl:with-param name="first" select="number(substring-before($as, ' '))"/>
          <xsl:with-param name="last" select="number(substring-after($as, ' '))"/>
        </xsl:call-template>
        <xsl:text>;</xsl:text>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The sum of one column, counted from 1, of a tally "4 2 10418.6 0 0 0;1 1 9034.1 0 0 0;". -->
  <xsl:template name="tallied">
    <xsl:param name="tally"/>
    <xsl:param name="column"/>
    <xsl:param name="sum" select="0"/>
    <xsl:variable name="number"><xsl:call-template name="nth">
      <xsl:with-param name="list" select="concat(substring-before($tally, ';'), ' ')"/>
      <xsl:with-param name="n" select="$column"/>
    </xsl:call-template></xsl:variable>
    <xsl:choose>
      <xsl:when test="string($number)">
        <xsl:call-template name="tallied">
          <xsl:with-param name="tally" select="substring-after($tally, ';')"/>
          <xsl:with-param name="column" select="$column"/>
          <xsl:with-param name="sum" select="$sum + $number"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$sum"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="nth">
    <xsl:param name="list"/>
    <xsl:param name="n"/>
    <xsl:choose>
      <xsl:when test="$n = 1"><xsl:value-of select="substring-before($list, ' ')"/></xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="nth">
          <xsl:with-param name="list" select="substring-after($list, ' ')"/>
          <xsl:with-param name="n" select="$n - 1"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- What counts, first: "11 adverse records, 5 open, $23,682.70 owed". "No adverse records" is said
       of a file that is there and holds none, and never against the bureau's own totals (`totals`, the
       nodes of these). `known` are the files looked at, `looked-at` what was looked for in them. -->
  <xsl:template name="headline">
    <xsl:param name="of"/>
    <xsl:param name="known"/>
    <xsl:param name="looked-at"/>
    <xsl:param name="totals"/>
    <xsl:param name="nothing">The bureau's reply has no matching file.</xsl:param>
    <xsl:variable name="tally"><xsl:call-template name="kinds-of"><xsl:with-param name="of" select="$of"/><xsl:with-param name="as">tally</xsl:with-param></xsl:call-template></xsl:variable>
    <xsl:variable name="adverse"><xsl:call-template name="tallied"><xsl:with-param name="tally" select="string($tally)"/><xsl:with-param name="column" select="1"/></xsl:call-template></xsl:variable>
    <xsl:variable name="beside"><xsl:call-template name="tallied"><xsl:with-param name="tally" select="string($tally)"/><xsl:with-param name="column" select="4"/></xsl:call-template></xsl:variable>
    <xsl:variable name="said"><xsl:apply-templates select="$totals" mode="adverse"/></xsl:variable>
    <xsl:choose>
      <xsl:when test="$adverse + $beside &gt; 0">
        <div class="say bad headline">
          <xsl:if test="$adverse &gt; 0">
            <p><strong>
              <xsl:call-template name="weight">
                <xsl:with-param name="tally" select="string($tally)"/>
                <xsl:with-param name="column" select="1"/>
              </xsl:call-template>
            </strong></p>
            <xsl:call-template name="aside">
              <xsl:with-param name="of" select="$of"/>
              <xsl:with-param name="as">untold</xsl:with-param>
              <xsl:with-param name="said">Of these it is not told whether they are open: </xsl:with-param>
            </xsl:call-template>
          </xsl:if>
          <xsl:if test="$beside &gt; 0">
            <p><strong>
              <xsl:call-template name="weight">
                <xsl:with-param name="tally" select="string($tally)"/>
                <xsl:with-param name="column" select="4"/>
                <xsl:with-param name="which"> outside the statistics</xsl:with-param>
              </xsl:call-template>
            </strong></p>
            <xsl:call-template name="aside">
              <xsl:with-param name="of" select="$of"/>
              <xsl:with-param name="as">beside</xsl:with-param>
              <xsl:with-param name="said">On file, and not counted by the service: </xsl:with-param>
            </xsl:call-template>
          </xsl:if>
        </div>
      </xsl:when>
      <xsl:when test="string($said)">
        <p class="say warn">
          <strong>No adverse records are listed, but the bureau's totals speak of some</strong>
          <xsl:value-of select="concat('The totals: ', substring($said, 3), '.')"/>
        </p>
      </xsl:when>
      <xsl:when test="$known">
        <p class="say good">
          <strong>No adverse records</strong>
          <xsl:value-of select="concat('Looked for: ', $looked-at, '.')"/>
        </p>
      </xsl:when>
      <xsl:otherwise><p class="say"><xsl:value-of select="$nothing"/></p></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- "11 adverse records, 5 open, $23,682.70 owed", from three columns of the tally. -->
  <xsl:template name="weight">
    <xsl:param name="tally"/>
    <xsl:param name="column"/>
    <xsl:param name="which"/>
    <xsl:variable name="count"><xsl:call-template name="tallied"><xsl:with-param name="tally" select="$tally"/><xsl:with-param name="column" select="$column"/></xsl:call-template></xsl:variable>
    <xsl:variable name="open"><xsl:call-template name="tallied"><xsl:with-param name="tally" select="$tally"/><xsl:with-param name="column" select="$column + 1"/></xsl:call-template></xsl:variable>
    <xsl:variable name="owed"><xsl:call-template name="tallied"><xsl:with-param name="tally" select="$tally"/><xsl:with-param name="column" select="$column + 2"/></xsl:call-template></xsl:variable>
    <xsl:call-template name="counted">
      <xsl:with-param name="count" select="number($count)"/>
      <xsl:with-param name="noun">adverse record</xsl:with-param>
    </xsl:call-template>
    <xsl:value-of select="$which"/>
    <!-- Of those outside, most are of kinds that are neither open nor owed. -->
    <xsl:if test="not($which) or $open != 0 or $owed != 0">
      <xsl:value-of select="concat(', ', $open, ' open, ')"/>
      <xsl:call-template name="amount"><xsl:with-param name="text" select="string($owed)"/></xsl:call-template>
      <xsl:text> owed</xsl:text>
    </xsl:if>
  </xsl:template>

  <!-- A remark below the headline; nothing where no kind has anything to say. -->
  <xsl:template name="aside">
    <xsl:param name="of"/>
    <xsl:param name="as"/>
    <xsl:param name="said"/>
    <xsl:variable name="list"><xsl:call-template name="kinds-of"><xsl:with-param name="of" select="$of"/><xsl:with-param name="as" select="$as"/></xsl:call-template></xsl:variable>
    <xsl:if test="string($list)">
      <p><xsl:value-of select="concat($said, substring($list, 3), '.')"/></p>
    </xsl:if>
  </xsl:template>

  <!-- The kinds as they stand for this node. -->
  <xsl:template name="kinds-of">
    <xsl:param name="of"/>
    <xsl:param name="as"/>
    <xsl:for-each select="$of[1]">
      <xsl:call-template name="kinds"><xsl:with-param name="as" select="$as"/></xsl:call-template>
    </xsl:for-each>
  </xsl:template>

  <!-- The table of the kinds, with periods where the day from which they count is known. -->
  <xsl:template name="counts-table">
    <xsl:param name="caption"/>
    <table class="wide counts" role="table">
      <caption><xsl:value-of select="$caption"/></caption>
      <xsl:call-template name="table-head">
        <xsl:with-param name="columns">
          <xsl:text>Records|$On file|$Open|$Listed|$Outstanding|</xsl:text>
          <xsl:if test="$response-date">$Last year|$2 years|$3 years|$4 years|</xsl:if>
        </xsl:with-param>
      </xsl:call-template>
      <tbody role="rowgroup"><xsl:call-template name="kinds"><xsl:with-param name="as">row</xsl:with-param></xsl:call-template></tbody>
    </table>
  </xsl:template>

  <xsl:template name="count-row">
    <xsl:param name="label"/>
    <xsl:param name="count"/>
    <xsl:param name="open"/>
    <xsl:param name="listed"/>
    <xsl:param name="owed"/>
    <xsl:param name="dates"/>
    <tr role="row">
      <xsl:if test="not($count)"><xsl:attribute name="class">quiet</xsl:attribute></xsl:if>
      <xsl:call-template name="cell">
        <xsl:with-param name="label">Records</xsl:with-param>
        <xsl:with-param name="value" select="$label"/>
        <xsl:with-param name="head" select="true()"/>
      </xsl:call-template>
      <xsl:call-template name="count-cell">
        <xsl:with-param name="label">On file</xsl:with-param>
        <xsl:with-param name="value" select="$count"/>
      </xsl:call-template>
      <xsl:call-template name="count-cell">
        <xsl:with-param name="label">Open</xsl:with-param>
        <xsl:with-param name="value" select="substring($open, 1, 15 * ($count != 0))"/>
      </xsl:call-template>
      <xsl:call-template name="sum-cell">
        <xsl:with-param name="label">Listed</xsl:with-param>
        <xsl:with-param name="of" select="$listed"/>
      </xsl:call-template>
      <xsl:call-template name="sum-cell">
        <xsl:with-param name="label">Outstanding</xsl:with-param>
        <xsl:with-param name="of" select="$owed"/>
      </xsl:call-template>
      <xsl:if test="$response-date">
        <xsl:call-template name="period-cell"><xsl:with-param name="label">Last year</xsl:with-param><xsl:with-param name="dates" select="$dates"/><xsl:with-param name="years" select="1"/></xsl:call-template>
        <xsl:call-template name="period-cell"><xsl:with-param name="label">2 years</xsl:with-param><xsl:with-param name="dates" select="$dates"/><xsl:with-param name="years" select="2"/></xsl:call-template>
        <xsl:call-template name="period-cell"><xsl:with-param name="label">3 years</xsl:with-param><xsl:with-param name="dates" select="$dates"/><xsl:with-param name="years" select="3"/></xsl:call-template>
        <xsl:call-template name="period-cell"><xsl:with-param name="label">4 years</xsl:with-param><xsl:with-param name="dates" select="$dates"/><xsl:with-param name="years" select="4"/></xsl:call-template>
      </xsl:if>
    </tr>
  </xsl:template>

  <xsl:template name="count-cell">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:call-template name="cell">
      <xsl:with-param name="label" select="$label"/>
      <xsl:with-param name="value" select="$value"/>
      <xsl:with-param name="class">amount</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="sum-cell">
    <xsl:param name="label"/>
    <xsl:param name="of"/>
    <xsl:variable name="sum"><xsl:if test="$of"><xsl:call-template name="total"><xsl:with-param name="of" select="$of"/></xsl:call-template></xsl:if></xsl:variable>
    <xsl:call-template name="cell">
      <xsl:with-param name="label" select="$label"/>
      <xsl:with-param name="value" select="$sum"/>
      <xsl:with-param name="as">amount</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- Those later than the day so many years before; 29 February needs no care, for a number between
       the 28th and 1 March serves as well. -->
  <xsl:template name="period-cell">
    <xsl:param name="label"/>
    <xsl:param name="dates"/>
    <xsl:param name="years"/>
    <xsl:variable name="from" select="$today - 10000 * $years"/>
    <xsl:call-template name="count-cell">
      <xsl:with-param name="label" select="$label"/>
      <xsl:with-param name="value" select="count($dates[number(translate(substring(normalize-space(), 1, 10), '-', '')) &gt; $from])"/>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
