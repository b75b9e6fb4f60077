// The prompt dialog's call on any message and any kind: the prefixes, the
// "message|value" split, the flags and the caller's slots of kind -4.
#include <cstdint>
#include <cstring>

#include "data_dir.h"
#include "shell/prompt_message.h"
#include "store/codec.h"

// The input: four bytes of kind, then the message.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    qint32 kind = 0;
    if (size >= 4) std::memcpy(&kind, data, 4);
    const size_t skip = qMin<size_t>(size, 4);
    const QString msg = codec::fromBytes(
        QByteArrayView(reinterpret_cast<const char*>(data + skip), qsizetype(size - skip)));
    const PromptMessage m = readPromptMessage(msg, kind);
    expect(m.text.size() + m.value.size() + m.tail.size() <= msg.size());
    expect(m.callerSlots.size() <= 5);
    for (const PromptMessage::CallerSlot& slot : m.callerSlots)
        expect(slot.slot >= 7 && slot.slot <= 11 && slot.tag.size() == 1);
    expect(!m.boxMode || m.kind == 4);
    return 0;
}
