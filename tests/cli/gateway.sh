# Sourced by cases: starts a bureau to talk to, over TLS on a free port, for as long as the case runs.
export ZR_USER_ID=demo ZR_USER_PASSWORD=hidden ZR_SUBSCRIBER_ID=S ZR_SUBSCRIBER_SECURITY_CODE=77
export SSL_CERT_FILE=$PWD/bureau.pem
BUREAU_GATEWAY_PASSWORD=$ZR_USER_PASSWORD bureau_gateway --ready-file address \
  --certificate-file bureau.pem --log exchanges --max-seconds ${GATEWAY_SECONDS:-90} --exit-with-parent >/dev/null 2>&1 &
gateway=$!
trap 'kill $gateway' EXIT
for _ in $(seq 400); do
  [ -s address ] && break
  sleep 0.05
done
export ZR_REQUEST_URL_TEST ZR_REQUEST_URL
ZR_REQUEST_URL_TEST=$(cat address)/cta/sys1
ZR_REQUEST_URL=$(cat address)/sys1
