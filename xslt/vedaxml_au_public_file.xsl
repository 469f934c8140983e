<?xml version="1.0" encoding="utf-8"?>
<!-- Public data: directorships, businesses, bankruptcies, court actions. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="public-file">
    <xsl:param name="level"/>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Directorships</xsl:with-param>
      <xsl:with-param name="records" select="directorship"/>
      <xsl:with-param name="noun">Directorship</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="table-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Disqualified directorships</xsl:with-param>
      <xsl:with-param name="records" select="disqualified-directorship"/>
      <xsl:with-param name="columns">Date disqualified|Disqualified until|</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Proprietorships</xsl:with-param>
      <xsl:with-param name="records" select="proprietorship"/>
      <xsl:with-param name="noun">Proprietorship</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Bankruptcies</xsl:with-param>
      <xsl:with-param name="records" select="bankruptcy"/>
      <xsl:with-param name="noun">Bankruptcy</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Court actions</xsl:with-param>
      <xsl:with-param name="records" select="court-action"/>
      <xsl:with-param name="noun">Court action</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="message-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Public file messages</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- A current directorship is the ordinary case; any other type is said. -->
  <xsl:template match="directorship" mode="facts">
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Organisation name</xsl:with-param>
        <xsl:with-param name="value" select="organisation/organisation-name"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Type</xsl:with-param>
        <xsl:with-param name="value" select="@type[. != 'current']"/>
        <xsl:with-param name="as">word</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Bureau reference</xsl:with-param>
        <xsl:with-param name="value" select="organisation/bureau-reference"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Organisation type</xsl:with-param>
        <xsl:with-param name="value"><xsl:call-template name="look-up">
            <xsl:with-param name="table" select="$organisation-types"/>
            <xsl:with-param name="code" select="string(organisation/organisation-type/@code)"/>
          </xsl:call-template></xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Organisation number</xsl:with-param>
        <xsl:with-param name="value" select="organisation/organisation-number"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Organisation status</xsl:with-param>
        <xsl:with-param name="value" select="organisation/organisation-details/organisation-status"/>
        <xsl:with-param name="as">marked</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Australian Business Number</xsl:with-param>
        <xsl:with-param name="value" select="organisation/australian-business-number"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Date appointed</xsl:with-param>
        <xsl:with-param name="value" select="date-appointed"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Date ceased</xsl:with-param>
        <xsl:with-param name="value" select="date-ceased"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Date last known as director</xsl:with-param>
        <xsl:with-param name="value" select="date-last-known-as-director"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
    </dl>
  </xsl:template>

  <xsl:template match="disqualified-directorship" mode="row">
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Date disqualified</xsl:with-param>
      <xsl:with-param name="value" select="date-disqualified"/>
      <xsl:with-param name="as">date</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="cell">
      <xsl:with-param name="label">Disqualified until</xsl:with-param>
      <xsl:with-param name="value" select="date-disqualified-until"/>
      <xsl:with-param name="as">date</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="proprietorship" mode="facts">
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Business name</xsl:with-param>
        <xsl:with-param name="value" select="business/business-name"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Date appointed</xsl:with-param>
        <xsl:with-param name="value" select="date-appointed"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Bureau reference</xsl:with-param>
        <xsl:with-param name="value" select="business/bureau-reference"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Australian Business Number</xsl:with-param>
        <xsl:with-param name="value" select="business/australian-business-number"/>
      </xsl:call-template>
      <xsl:for-each select="business/business-registration">
        <xsl:call-template name="numbered-fact">
          <xsl:with-param name="label">Business registration</xsl:with-param>
          <xsl:with-param name="place" select="@state | state"/>
          <xsl:with-param name="number" select="@number | number"/>
        </xsl:call-template>
      </xsl:for-each>
    </dl>
  </xsl:template>

  <xsl:template match="bankruptcy" mode="tag">
    <xsl:if test="not(contains('|DISCHARGED|COMPLETED|', concat('|', translate(discharge-status/@type, $small, $capital), '|')))">
      <xsl:call-template name="tag"><xsl:with-param name="text">Undischarged</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="bankruptcy" mode="facts">
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Type</xsl:with-param>
        <xsl:with-param name="value" select="bankruptcy-type"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Date declared</xsl:with-param>
        <xsl:with-param name="value" select="date-declared"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:for-each select="proceedings">
        <xsl:call-template name="numbered-fact">
          <xsl:with-param name="label">Proceedings (state, year, number)</xsl:with-param>
          <xsl:with-param name="place" select="@state | state"/>
          <xsl:with-param name="year" select="@year | year"/>
          <xsl:with-param name="number" select="@number | number"/>
        </xsl:call-template>
      </xsl:for-each>
      <xsl:call-template name="dated-fact">
        <xsl:with-param name="label">Discharge status</xsl:with-param>
        <xsl:with-param name="fact" select="discharge-status"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Co-borrower</xsl:with-param>
        <xsl:with-param name="value" select="co-borrower"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Narrative</xsl:with-param>
        <xsl:with-param name="value" select="narrative"/>
        <xsl:with-param name="class">long</xsl:with-param>
      </xsl:call-template>
    </dl>
  </xsl:template>

  <xsl:template match="court-action" mode="tag">
    <xsl:if test="not(court-action-status[@code = 'D' or @code = 'P' or @code = 'S'])
                  and translate(court-action-amount, '$, ', '') &gt; 0">
      <xsl:call-template name="tag"><xsl:with-param name="text">Not paid</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="court-action" mode="facts">
    <dl class="facts">
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Type</xsl:with-param>
        <xsl:with-param name="value" select="@type"/>
        <xsl:with-param name="as">word</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Action date</xsl:with-param>
        <xsl:with-param name="value" select="action-date"/>
        <xsl:with-param name="as">date</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Creditor</xsl:with-param>
        <xsl:with-param name="value" select="creditor"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Court action amount</xsl:with-param>
        <xsl:with-param name="value" select="court-action-amount"/>
        <xsl:with-param name="as">amount</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Court type</xsl:with-param>
        <xsl:with-param name="value" select="court-type"/>
      </xsl:call-template>
      <xsl:call-template name="fact">
        <xsl:with-param name="label">Court action id</xsl:with-param>
        <xsl:with-param name="value" select="plaint-number"/>
      </xsl:call-template>
      <xsl:call-template name="dated-fact">
        <xsl:with-param name="label">Court action status</xsl:with-param>
        <xsl:with-param name="fact" select="court-action-status"/>
      </xsl:call-template>
    </dl>
  </xsl:template>

  <!-- A fact like "NSW, 2009, Number 12", of the parts that are there. -->
  <xsl:template name="numbered-fact">
    <xsl:param name="label"/>
    <xsl:param name="place" select="/.."/>
    <xsl:param name="year" select="/.."/>
    <xsl:param name="number" select="/.."/>
    <xsl:call-template name="fact">
      <xsl:with-param name="label" select="$label"/>
      <xsl:with-param name="value">
        <xsl:for-each select="($place | $year | $number)[normalize-space()]">
          <xsl:sort select="3 * (count(. | $number) = count($number)) + 2 * (count(. | $year) = count($year))"
                    data-type="number"/>
          <xsl:if test="position() != 1">, </xsl:if>
          <xsl:if test="count(. | $number) = count($number)">Number </xsl:if>
          <xsl:value-of select="normalize-space()"/>
        </xsl:for-each>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
