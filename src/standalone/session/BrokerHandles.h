#pragma once

#include <nats/nats.h>

#include <QByteArray>
#include <algorithm>
#include <memory>

#include "standalone/session/SessionFrame.h"

namespace kuStandalone {

/** Frees what the broker's client gave. */
template <auto free>
struct BrokerFree {
  template <class T>
  void operator()(T* given) const {
    free(given);
  }
};

template <class T, auto free>
using BrokerHandle = std::unique_ptr<T, BrokerFree<free>>;

using BrokerOptions = BrokerHandle<natsOptions, natsOptions_Destroy>;
using BrokerSubscription = BrokerHandle<natsSubscription, natsSubscription_Destroy>;
using BrokerInbox = BrokerHandle<char, natsInbox_Destroy>;
using BrokerMessage = BrokerHandle<natsMsg, natsMsg_Destroy>;
using BrokerMetaData = BrokerHandle<jsMsgMetaData, jsMsgMetaData_Destroy>;
using BrokerStreamInfo = BrokerHandle<jsStreamInfo, jsStreamInfo_Destroy>;
using BrokerConsumerInfo = BrokerHandle<jsConsumerInfo, jsConsumerInfo_Destroy>;
using BrokerJetStream = BrokerHandle<jsCtx, jsCtx_Destroy>;
using BrokerAcknowledgement = BrokerHandle<jsPubAck, jsPubAck_Destroy>;
using BrokerLink = BrokerHandle<natsConnection, natsConnection_Destroy>;

/** A message's bytes; of one that is longer than @p most no more than shows that it is. */
inline QByteArray bytesOf(const natsMsg* message, int most) {
  const int length = natsMsg_GetDataLength(message);
  return QByteArray(natsMsg_GetData(message), std::min(length, most + 1));
}

}  // namespace kuStandalone
