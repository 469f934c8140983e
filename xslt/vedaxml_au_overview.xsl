<?xml version="1.0" encoding="utf-8"?>
<!-- The box at the top: what was matched, the score, and how many adverse records there are. What
     counts as paid or discharged is counted as the component's own statistics count it. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="overview">
    <xsl:param name="match"/>
    <xsl:param name="other"/>
    <xsl:variable name="credit" select="$match/individual-consumer-credit-file
                                        | $match/individual-commercial-credit-file"/>
    <xsl:variable name="public" select="$match/individual-public-data-file"/>
    <xsl:variable name="adverse"
                  select="count($credit/default | $public/bankruptcy | $public/court-action
                                | $public/disqualified-directorship)"/>
    <section class="panel overview" aria-labelledby="overview">
      <h2 id="overview">Overview</h2>
      <xsl:if test="$match">
        <xsl:call-template name="verdict">
          <xsl:with-param name="credit" select="$credit"/>
          <xsl:with-param name="public" select="$public"/>
          <xsl:with-param name="adverse" select="$adverse"/>
        </xsl:call-template>
      </xsl:if>
      <xsl:if test="not($match)">
        <p class="say">The bureau's reply has no matching file.</p>
      </xsl:if>
      <xsl:if test="$other">
        <p class="say warn">
          <strong>There is a possible match too</strong>
          <xsl:text>A second file may concern the same person; its records are not counted here. See </xsl:text>
          <a href="#possible-match">Possible match</a>
          <xsl:text>.</xsl:text>
        </p>
      </xsl:if>
      <dl class="facts tiles">
        <xsl:call-template name="fact">
          <xsl:with-param name="label">Match type</xsl:with-param>
          <xsl:with-param name="value" select="translate($match/@type, $small, $capital)"/>
        </xsl:call-template>
        <xsl:call-template name="fact">
          <xsl:with-param name="label">Bureau file number</xsl:with-param>
          <xsl:with-param name="value" select="$match/bureau-reference"/>
        </xsl:call-template>
        <xsl:if test="$credit">
          <xsl:call-template name="fact">
            <xsl:with-param name="label">Credit enquiries on file</xsl:with-param>
            <xsl:with-param name="value" select="count($credit/credit-enquiry)"/>
          </xsl:call-template>
        </xsl:if>
        <xsl:for-each select="$match/individual-public-data-file/disqualified-directorship
                              /date-disqualified-until[normalize-space()]">
          <xsl:sort select="normalize-space()" order="descending"/>
          <xsl:if test="position() = 1">
            <xsl:call-template name="fact">
              <xsl:with-param name="label">Disqualified as director until</xsl:with-param>
              <xsl:with-param name="value" select="."/>
              <xsl:with-param name="as">date</xsl:with-param>
            </xsl:call-template>
          </xsl:if>
        </xsl:for-each>
        <xsl:apply-templates select="score-data[1]/score[1]" mode="tile"/>
      </dl>
      <xsl:if test="$adverse">
        <xsl:call-template name="adverse-table">
          <xsl:with-param name="credit" select="$credit"/>
          <xsl:with-param name="public" select="$public"/>
        </xsl:call-template>
      </xsl:if>
    </section>
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

  <!-- "No adverse records" is said of a file that is there and holds none, and never against the
       bureau's own totals. -->
  <xsl:template name="verdict">
    <xsl:param name="credit"/>
    <xsl:param name="public"/>
    <xsl:param name="adverse"/>
    <xsl:variable name="totals"><xsl:apply-templates select="summary-data/summary" mode="adverse"/></xsl:variable>
    <xsl:choose>
      <xsl:when test="$adverse">
        <p class="say bad"><strong>
          <xsl:call-template name="counted">
            <xsl:with-param name="count" select="$adverse"/>
            <xsl:with-param name="noun">adverse record</xsl:with-param>
          </xsl:call-template>
        </strong></p>
      </xsl:when>
      <xsl:when test="string($totals)">
        <p class="say warn">
          <strong>No adverse records are listed, but the summary data speaks of some</strong>
          <xsl:value-of select="concat('See the summary data: ', substring($totals, 3), '.')"/>
        </p>
      </xsl:when>
      <xsl:when test="$credit or $public">
        <p class="say good">
          <strong>No adverse records</strong>
          <xsl:text>Looked at: </xsl:text>
          <xsl:for-each select="$credit | $public">
            <xsl:if test="position() != 1">, </xsl:if>
            <xsl:apply-templates select="." mode="kind"/>
          </xsl:for-each>
          <xsl:text>.</xsl:text>
        </p>
      </xsl:when>
      <xsl:otherwise>
        <p class="say">The reply holds no credit file and no public data of this person.</p>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="individual-consumer-credit-file" mode="kind">consumer credit file</xsl:template>
  <xsl:template match="individual-commercial-credit-file" mode="kind">commercial credit file</xsl:template>
  <xsl:template match="individual-public-data-file" mode="kind">public data</xsl:template>

  <xsl:template name="adverse-table">
    <xsl:param name="credit"/>
    <xsl:param name="public"/>
    <xsl:call-template name="counts-table">
      <xsl:with-param name="caption">Adverse records of the matched file; open are those not paid or not discharged</xsl:with-param>
      <xsl:with-param name="rows">
        <xsl:if test="$credit">
          <xsl:call-template name="money-row">
            <xsl:with-param name="label">Defaults</xsl:with-param>
            <xsl:with-param name="records" select="$credit/default"/>
            <xsl:with-param name="listed" select="$credit/default/original-default/default-amount"/>
            <xsl:with-param name="owed"
                            select="$credit/default[not(account-details/default-status[@code = 'P'
                                                                                       or @code = 'S'])]
                                    /current-default/default-amount[number() &gt; 0]"/>
          </xsl:call-template>
        </xsl:if>
        <xsl:if test="$public">
          <xsl:call-template name="court-row">
            <xsl:with-param name="label">Judgements</xsl:with-param>
            <xsl:with-param name="records" select="$public/court-action[@type = 'default-judgement']"/>
          </xsl:call-template>
          <xsl:call-template name="court-row">
            <xsl:with-param name="label">Court writs and summonses</xsl:with-param>
            <xsl:with-param name="records"
                            select="$public/court-action[not(@type = 'default-judgement')]"/>
          </xsl:call-template>
          <xsl:call-template name="count-row">
            <xsl:with-param name="label">Bankruptcies</xsl:with-param>
            <xsl:with-param name="records" select="$public/bankruptcy"/>
            <xsl:with-param name="open" select="count($public/bankruptcy[not(
                contains('|DISCHARGED|COMPLETED|',
                         concat('|', translate(discharge-status/@type, $small, $capital), '|')))])"/>
          </xsl:call-template>
          <xsl:call-template name="count-row">
            <xsl:with-param name="label">Disqualified directorships</xsl:with-param>
            <xsl:with-param name="records" select="$public/disqualified-directorship"/>
          </xsl:call-template>
        </xsl:if>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="court-row">
    <xsl:param name="label"/>
    <xsl:param name="records"/>
    <xsl:call-template name="money-row">
      <xsl:with-param name="label" select="$label"/>
      <xsl:with-param name="records" select="$records"/>
      <xsl:with-param name="listed" select="$records/court-action-amount"/>
      <xsl:with-param name="owed"
                      select="$records[not(court-action-status[@code = 'D' or @code = 'P' or @code = 'S'])]
                              /court-action-amount[number() &gt; 0]"/>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
