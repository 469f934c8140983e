<?xml version="1.0" encoding="utf-8"?>
<!-- The box at the top: what counts first, then what must not be overlooked, what was matched, the
     score, how many records there are and when it happened. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="overview">
    <xsl:variable name="credit" select="$match/individual-consumer-credit-file
                                        | $match/individual-commercial-credit-file"/>
    <xsl:variable name="public" select="$match/individual-public-data-file"/>
    <section class="panel overview" aria-labelledby="overview">
      <h2 id="overview">Overview</h2>
      <xsl:call-template name="headline">
        <xsl:with-param name="of" select="$match"/>
        <xsl:with-param name="known" select="$credit | $public"/>
        <xsl:with-param name="looked-at">
          <xsl:if test="$credit">defaults</xsl:if>
          <xsl:if test="$credit and $public">, </xsl:if>
          <xsl:if test="$public">judgements, writs and summonses, bankruptcies, disqualifications</xsl:if>
        </xsl:with-param>
        <xsl:with-param name="totals" select="$report/summary-data/summary"/>
        <xsl:with-param name="nothing">
          <xsl:if test="$match">The reply holds no credit file and no public data of this person.</xsl:if>
          <xsl:if test="not($match)">The bureau's reply has no matching file.</xsl:if>
        </xsl:with-param>
      </xsl:call-template>
      <xsl:if test="$other">
        <p class="say warn">
          <strong>There is a possible match too</strong>
          <xsl:text>A second file may concern the same person; its records are not counted here. See </xsl:text>
          <a href="#possible-match">Possible match</a>
          <xsl:text>.</xsl:text>
        </p>
      </xsl:if>
      <xsl:for-each select="$public/disqualified-directorship/date-disqualified-until[normalize-space()]">
        <xsl:sort select="normalize-space()" order="descending"/>
        <xsl:if test="position() = 1">
          <p class="say bad">
            <strong>
              <xsl:text>Disqualified as director until </xsl:text>
              <xsl:call-template name="date"><xsl:with-param name="text" select="normalize-space()"/></xsl:call-template>
            </strong>
          </p>
        </xsl:if>
      </xsl:for-each>
      <xsl:call-template name="marks">
        <xsl:with-param name="of" select="$match/@type | $public/directorship
            | $public/disqualified-directorship[not(normalize-space(date-disqualified-until))]
            | $credit/default/account-details/default-status[@code][not(normalize-space())]"/>
      </xsl:call-template>
      <dl class="facts tiles">
        <xsl:call-template name="match-type"><xsl:with-param name="type" select="$match/@type"/></xsl:call-template>
        <xsl:call-template name="fact">
          <xsl:with-param name="label">Bureau file number</xsl:with-param>
          <xsl:with-param name="value" select="$match/bureau-reference"/>
        </xsl:call-template>
        <xsl:apply-templates select="$report/score-data[1]/score[1]" mode="tile"/>
      </dl>
      <xsl:if test="$credit/* | $public/*">
        <xsl:for-each select="$match">
          <xsl:call-template name="counts-table">
            <xsl:with-param name="caption">Records of the matched file; open are those not paid or not discharged</xsl:with-param>
          </xsl:call-template>
          <xsl:call-template name="timeline"/>
        </xsl:for-each>
      </xsl:if>
    </section>
  </xsl:template>

  <xsl:template match="directorship" mode="mark">
    <xsl:for-each select="organisation/organisation-details/organisation-status">
      <xsl:call-template name="status-mark">
        <xsl:with-param name="what" select="concat('Director of ', normalize-space(../../organisation-name))"/>
      </xsl:call-template>
    </xsl:for-each>
  </xsl:template>
  <xsl:template match="disqualified-directorship" mode="mark">
    <xsl:call-template name="mark"><xsl:with-param name="what">Director</xsl:with-param><xsl:with-param name="says">disqualified, without an end</xsl:with-param></xsl:call-template>
  </xsl:template>
  <xsl:template match="default-status" mode="mark">
    <xsl:call-template name="mark">
      <xsl:with-param name="class">warn</xsl:with-param>
      <xsl:with-param name="what">A default's status is a letter that the reply does not explain</xsl:with-param>
      <xsl:with-param name="says" select="@code"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="score" mode="tile">
    <xsl:call-template name="fact">
      <xsl:with-param name="label">Score: relative risk index</xsl:with-param>
      <xsl:with-param name="value" select="relative-risk-index"/>
    </xsl:call-template>
    <xsl:call-template name="fact">
      <xsl:with-param name="label">Score: relative risk</xsl:with-param>
      <xsl:with-param name="value" select="relative-risk"/>
    </xsl:call-template>
    <xsl:call-template name="fact">
      <xsl:with-param name="label">Score: risk odds</xsl:with-param>
      <xsl:with-param name="value" select="risk-odds"/>
    </xsl:call-template>
  </xsl:template>

  <!-- The kinds of records of a matched file. B2Bay counts no writs and summonses, and of judgements not
       which are open. -->
  <xsl:template name="kinds">
    <xsl:param name="as"/>
    <xsl:variable name="b2bay" select="$service = 'B2BayAU'"/>
    <xsl:variable name="credit" select="individual-consumer-credit-file | individual-commercial-credit-file"/>
    <xsl:variable name="public" select="individual-public-data-file"/>
    <xsl:variable name="owing" select="$credit/default[not(account-details/default-status[@code = 'P' or @code = 'S'])]"/>
    <xsl:variable name="open-defaults" select="$owing[translate(current-default/default-amount, '$, ', '') &gt; 0]"/>
    <xsl:variable name="judgements" select="$public/court-action[@type = 'default-judgement']"/>
    <xsl:variable name="writs" select="$public/court-action[not(@type = 'default-judgement')]"/>
    <xsl:variable name="standing" select="$public/court-action[not(court-action-status[@code = 'D' or @code = 'P' or @code = 'S'])]"/>
    <xsl:variable name="open-actions" select="$standing[translate(court-action-amount, '$, ', '') &gt; 0]"/>
    <xsl:variable name="undischarged" select="$public/bankruptcy[not(contains('|DISCHARGED|COMPLETED|',
        concat('|', translate(discharge-status/@type, $small, $capital), '|')))]"/>
    <xsl:if test="$credit">
      <xsl:call-template name="kind">
        <xsl:with-param name="label">Defaults</xsl:with-param>
        <xsl:with-param name="records" select="$credit/default"/>
        <xsl:with-param name="dates" select="$credit/default/original-default/date-recorded"/>
        <xsl:with-param name="adverse" select="$credit/default"/>
        <xsl:with-param name="open" select="$open-defaults"/>
        <xsl:with-param name="open-dates" select="$open-defaults/original-default/date-recorded"/>
        <xsl:with-param name="listed" select="$credit/default/original-default/default-amount"/>
        <xsl:with-param name="owed" select="$owing/current-default/default-amount"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="$public">
      <xsl:call-template name="kind">
        <xsl:with-param name="label">Judgements</xsl:with-param>
        <xsl:with-param name="records" select="$judgements"/>
        <xsl:with-param name="dates" select="$judgements/action-date"/>
        <xsl:with-param name="adverse" select="$judgements"/>
        <xsl:with-param name="open" select="$open-actions[@type = 'default-judgement'][not($b2bay)]"/>
        <xsl:with-param name="open-dates" select="$open-actions[@type = 'default-judgement']/action-date"/>
        <xsl:with-param name="untold" select="$judgements[$b2bay]"/>
        <xsl:with-param name="tells" select="not($b2bay)"/>
        <xsl:with-param name="listed" select="$judgements/court-action-amount"/>
        <xsl:with-param name="owed" select="$standing[@type = 'default-judgement'][not($b2bay)]/court-action-amount"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
      <xsl:call-template name="kind">
        <xsl:with-param name="label">Writs and summonses</xsl:with-param>
        <xsl:with-param name="records" select="$writs"/>
        <xsl:with-param name="dates" select="$writs/action-date"/>
        <xsl:with-param name="adverse" select="$writs[not($b2bay)]"/>
        <xsl:with-param name="open" select="$open-actions[not(@type = 'default-judgement')][not($b2bay)]"/>
        <xsl:with-param name="open-dates" select="$open-actions[not(@type = 'default-judgement')]/action-date"/>
        <xsl:with-param name="beside" select="$writs[$b2bay]"/>
        <xsl:with-param name="beside-open" select="$open-actions[not(@type = 'default-judgement')][$b2bay]"/>
        <xsl:with-param name="listed" select="$writs/court-action-amount"/>
        <xsl:with-param name="owed" select="$standing[not(@type = 'default-judgement')][not($b2bay)]/court-action-amount"/>
        <xsl:with-param name="apart" select="$standing[not(@type = 'default-judgement')][$b2bay]/court-action-amount"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
      <xsl:call-template name="kind">
        <xsl:with-param name="label">Bankruptcies</xsl:with-param>
        <xsl:with-param name="records" select="$public/bankruptcy"/>
        <xsl:with-param name="dates" select="$public/bankruptcy/date-declared"/>
        <xsl:with-param name="adverse" select="$public/bankruptcy"/>
        <xsl:with-param name="open" select="$undischarged"/>
        <xsl:with-param name="open-dates" select="$undischarged/date-declared"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
      <xsl:call-template name="kind">
        <xsl:with-param name="label">Disqualifications</xsl:with-param>
        <xsl:with-param name="ends" select="false()"/>
        <xsl:with-param name="records" select="$public/disqualified-directorship"/>
        <xsl:with-param name="dates" select="$public/disqualified-directorship/date-disqualified"/>
        <xsl:with-param name="adverse" select="$public/disqualified-directorship"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="$credit">
      <xsl:call-template name="kind">
        <xsl:with-param name="label">Enquiries</xsl:with-param>
        <xsl:with-param name="records" select="$credit/credit-enquiry"/>
        <xsl:with-param name="dates" select="$credit/credit-enquiry/@enquiry-date"/>
        <xsl:with-param name="as" select="$as"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

</xsl:stylesheet>
