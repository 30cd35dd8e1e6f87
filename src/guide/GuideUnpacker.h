#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <functional>
#include <memory>
#include <vector>

/// Unpacks a guide as it is read. Whether it is packed is seen from its bytes, at each layer:
/// servers pack a file that is packed already. A file that is not packed passes through.
///
/// Memory stays small whatever comes, since the receiver takes what was unpacked at once.
class GuideUnpacker final
{
public:
    /// Layers of gzip that are unpacked.
    static constexpr int mostLayers = 2;

    enum class Result
    {
        Good,
        UnknownPacking, ///< by a program other than gzip, or more often than `mostLayers`
        Damaged,        ///< a wrong checksum, or no gzip behind its mark
        Stopped         ///< the receiver returned false
    };
    /// Takes unpacked bytes; false to stop.
    using Receiver = std::function<bool(QByteArrayView)>;

    explicit GuideUnpacker(Receiver receiver);
    ~GuideUnpacker();
    Q_DISABLE_COPY_MOVE(GuideUnpacker)

    /// Not to be called again once it returned something other than Good.
    Result add(QByteArrayView bytes);
    /// Passes on what waited for more. Call it once, at the end. A file that ends within its
    /// packing is reported as good: what follows tells whether something is missing.
    Result finish();

private:
    class Layer;

    Result give(std::size_t depth, QByteArrayView bytes);
    Result begin(std::size_t depth);

    Receiver receive;
    std::vector<std::unique_ptr<Layer>> layers;
    QByteArray head; ///< the first bytes of the innermost layer, until they tell what it is
    bool isPlain = false;
};
