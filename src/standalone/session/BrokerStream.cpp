#include "standalone/session/BrokerStream.h"

#include <QUuid>

#include "standalone/session/BrokerConnection.h"
#include "standalone/session/BrokerHandles.h"

namespace kuStandalone {

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::int64_t kMinute = 60'000 * kMillisecond;

/** Whoever is connected sees every message as long as it is less than this behind. */
constexpr std::int64_t kKeptPerSubject = 1000;
/** The broker reserves so much for each session. */
constexpr std::int64_t kKeptBytes = 128 << 20;
constexpr std::int64_t kKeptTime = 30 * 24 * 60 * kMinute;
constexpr std::int64_t kDuplicateWindow = 10 * kMinute;
constexpr std::int64_t kConsumerHeartbeat = 500 * kMillisecond;
constexpr std::chrono::seconds kLongestSilence{3};

void onMessage(natsConnection*, natsSubscription*, natsMsg* given, void* closure) {
  const BrokerMessage message(given);
  auto* receiver = static_cast<BrokerReceiver*>(closure);
  receiver->heardAt = BrokerReceiver::Clock::now();
  jsMsgMetaData* metaData = nullptr;
  if (natsMsg_GetMetaData(&metaData, given) != NATS_OK) return;
  const BrokerMetaData owned(metaData);
  SessionDelivery delivery;
  delivery.bytes = bytesOf(given, kSessionFrameBytes);
  delivery.subscription = receiver->subscription;
  delivery.sequence = metaData->Sequence.Stream;
  delivery.pending = metaData->NumPending;
  receiver->inbox.put(std::move(delivery));
}

BrokerStream::State stateOf(const jsStreamInfo& info) {
  BrokerStream::State state;
  const char* description = info.Config->Description;
  state.identity =
      QByteArray(description ? description : "") + QByteArray::number(qint64(info.Created));
  state.lastSequence = info.State.LastSeq;
  return state;
}

BrokerStream::State failed(natsStatus status, jsErrCode code) {
  BrokerStream::State state;
  if (status == NATS_NO_RESPONDERS || code == JSNotEnabledErr ||
      code == JSNotEnabledForAccountErr) {
    state.error = QStringLiteral("the broker has no JetStream");
    return state;
  }
  // What the broker itself says, where it says something.
  const char* text = code ? nats_GetLastError(nullptr) : natsStatus_GetText(status);
  const QString reason = QString::fromUtf8(text);
  state.error = QStringLiteral("the broker does not open the session: %1").arg(reason);
  return state;
}

natsStatus makeStream(jsCtx* context, const SessionSubject& subject, jsStreamInfo** info,
                      jsErrCode* code) {
  const QByteArray identity = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
  const QByteArray name = subject.stream();
  const QByteArray all = subject.all();
  const char* subjects[] = {all.constData()};
  jsStreamConfig config;
  jsStreamConfig_Init(&config);
  config.Name = name.constData();
  config.Description = identity.constData();
  config.Subjects = subjects;
  config.SubjectsLen = 1;
  config.MaxMsgsPerSubject = kKeptPerSubject;
  config.MaxBytes = kKeptBytes;
  config.MaxAge = kKeptTime;
  config.MaxMsgSize = kSessionFrameBytes;
  config.Duplicates = kDuplicateWindow;
  return js_AddStream(info, context, &config, nullptr, code);
}

}  // namespace

struct BrokerStream::Parts {
  QByteArray name;
  BrokerJetStream context;
  BrokerSubscription subscription;
  BrokerReceiver* receiver = nullptr;
};

BrokerStream::BrokerStream(BrokerConnection& connection)
    : _connection(connection), _parts(new Parts{connection.subject().stream(), {}, {}, nullptr}) {
  jsOptions options;
  jsOptions_Init(&options);
  options.Wait = connection.options().acknowledgeTimeout.count();
  jsCtx* context = nullptr;
  natsConnection_JetStream(&context, connection.link(), &options);
  _parts->context.reset(context);
}

BrokerStream::~BrokerStream() { retire(); }

/** The broker forgets by itself to whom it delivered where nobody listens any more. */
void BrokerStream::retire() {
  if (!_parts->subscription) return;
  natsSubscription_Unsubscribe(_parts->subscription.get());
  _connection.keepEnded(_parts->subscription.release());
}

BrokerStream::State BrokerStream::find() {
  jsStreamInfo* info = nullptr;
  jsErrCode code = jsErrCode(0);
  const char* name = _parts->name.constData();
  natsStatus status = js_GetStreamInfo(&info, _parts->context.get(), name, nullptr, &code);
  if (status == NATS_NOT_FOUND) {
    code = jsErrCode(0);
    status = makeStream(_parts->context.get(), _connection.subject(), &info, &code);
  }
  // Somebody else made it at the same moment.
  if (code == JSStreamNameExistErr) {
    status = js_GetStreamInfo(&info, _parts->context.get(), name, nullptr, &code);
  }
  const BrokerStreamInfo owned(info);
  return status == NATS_OK ? stateOf(*info) : failed(status, code);
}

BrokerStream::Subscription BrokerStream::subscribeToLast(unsigned number) {
  return subscribe(number, 0);
}

BrokerStream::Subscription BrokerStream::subscribeFrom(unsigned number, std::uint64_t sequence) {
  return subscribe(number, sequence);
}

/** A plain subscription to which the broker delivers, since the client's own way of keeping the
 * order gets lost where the broker forgets to whom it delivered: the session counts by itself. */
BrokerStream::Subscription BrokerStream::subscribe(unsigned number, std::uint64_t firstSequence) {
  retire();
  natsInbox* made = nullptr;
  if (natsInbox_Create(&made) != NATS_OK) return {};
  const BrokerInbox inbox(made);
  natsSubscription* subscription = nullptr;
  _parts->receiver = _connection.makeReceiver(number);
  const natsStatus status = natsConnection_Subscribe(&subscription, _connection.link(), inbox.get(),
                                                     onMessage, _parts->receiver);
  _parts->subscription.reset(subscription);
  if (status != NATS_OK) return {};
  natsSubscription_SetPendingLimits(subscription, -1, -1);
  const Subscription answer = deliverTo(inbox.get(), firstSequence);
  if (!answer.exists) retire();
  return answer;
}

BrokerStream::Subscription BrokerStream::deliverTo(const char* inbox, std::uint64_t firstSequence) {
  const QByteArray all = _connection.subject().all();
  jsConsumerConfig config;
  jsConsumerConfig_Init(&config);
  config.DeliverSubject = inbox;
  config.DeliverPolicy = firstSequence == 0 ? js_DeliverLastPerSubject : js_DeliverByStartSequence;
  config.OptStartSeq = firstSequence;
  config.FilterSubject = all.constData();
  config.AckPolicy = js_AckNone;
  config.Heartbeat = kConsumerHeartbeat;
  config.MemoryStorage = true;
  jsConsumerInfo* info = nullptr;
  const natsStatus status = js_AddConsumer(&info, _parts->context.get(), _parts->name.constData(),
                                           &config, nullptr, nullptr);
  const BrokerConsumerInfo owned(info);
  if (status != NATS_OK) return {};
  return {true, info->NumPending + info->Delivered.Consumer};
}

bool BrokerStream::isSilent() const {
  if (!_parts->receiver) return false;
  return BrokerReceiver::Clock::now() - _parts->receiver->heardAt.load() > kLongestSilence;
}

bool BrokerStream::send(const QByteArray& subject, const QByteArray& bytes, const QByteArray& id) {
  natsMsg* made = nullptr;
  if (natsMsg_Create(&made, subject.constData(), nullptr, bytes.constData(), bytes.size()) !=
      NATS_OK) {
    return false;
  }
  const BrokerMessage message(made);
  natsMsgHeader_Set(made, "Nats-Msg-Id", id.constData());
  natsMsgHeader_Set(made, "Nats-Expected-Stream", _parts->name.constData());
  return natsConnection_PublishMsg(_connection.link(), made) == NATS_OK;
}

Publication BrokerStream::publish(const QByteArray& subject, const QByteArray& bytes,
                                  const QByteArray& id) {
  jsPubOptions options;
  jsPubOptions_Init(&options);
  options.MsgId = id.constData();
  options.ExpectStream = _parts->name.constData();
  jsPubAck* acknowledgement = nullptr;
  jsErrCode code = jsErrCode(0);
  const natsStatus status = js_Publish(&acknowledgement, _parts->context.get(), subject.constData(),
                                       bytes.constData(), bytes.size(), &options, &code);
  const BrokerAcknowledgement owned(acknowledgement);
  if (status == NATS_OK) return Publication::Stored;
  const bool isForNow = code == JSClusterNotAvailErr || code == JSClusterNotLeaderErr;
  const bool isRefused = status == NATS_MAX_PAYLOAD || (code != 0 && !isForNow);
  return isRefused ? Publication::Refused : Publication::Unknown;
}

}  // namespace kuStandalone
