#include <string>

#include "host/decimal.h"
#include "host/writers.h"
#include "output/vector_record.h"

namespace ovaline::host {

void writeRecords(std::span<const std::byte> stream, double dotsPerMillimetre, Sink& sink) {
    std::string text = "{\"unit\": \"dot\", \"dotsPerMillimetre\": ";
    appendRounded(text, dotsPerMillimetre, 6);
    text += ", \"records\": [";
    for (std::size_t at = 0; at < stream.size(); at += kVectorRecordSize) {
        const VectorRecord record = decode(stream.data() + at);
        text += at == 0 ? "\n[\"" : ",\n[\"";
        text.push_back(record.code);
        text += "\", ";
        appendSingle(text, record.x);
        text += ", ";
        appendSingle(text, record.y);
        text += "]";
        sink.append(text);
        text.clear();
    }
    text += "\n]}\n";
    sink.append(text);
}

}  // namespace ovaline::host
