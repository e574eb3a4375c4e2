#pragma once

#include "gfx/scale_internal.h"

#include <cstddef>
#include <cstring>

/// The bilinear scaler over vectors. Every file of an instruction set compiles it for its own `Vector`, with
/// its own compiler flags: so all here is local to that file, and calls no inline function of another header,
/// whose one copy in the program might be made of instructions that the processor does not know.
///
/// A Vector has `lanes` floats, that is the four bytes each of `lanes` / 4 pixels. Four vectors make a group
/// of `lanes` pixels: the vector k holds the pixels k, k + 4, k + 8 and so on, which is the order in which
/// the instructions that pack four vectors of words to one of bytes want them.
namespace {

/// An integer below 2^23 in the low bits of a float becomes 2^23 + itself under this exponent.
constexpr float integerBias = 8388608;

struct RowPair {
    const uint32_t* top;
    const uint32_t* bottom;
    float dy;
};

/// What both ways to scale share: the columns of a strip of at most `width`. A picture is scaled strip by
/// strip, so that the tables of its columns have a place on the stack, whatever its size.
template <class Vector, int width>
class BilinearStrip {
protected:
    using Floats = typename Vector::Floats;
    static constexpr int group = Vector::lanes;

    explicit BilinearStrip(const BilinearJob& job)
        : mJob(job), mXRatio(static_cast<float>(job.srcW - 1) / static_cast<float>(job.dstW)),
          mYRatio(static_cast<float>(job.srcH - 1) / static_cast<float>(job.dstH)) {}

    /// Makes the strip begin at the column `first`. Its columns are filled up to whole groups by repeating
    /// the last. The weights stand four times, once for every byte of a pixel, in the order of the vectors.
    void place(int first) {
        const int rest = mJob.dstW - first;
        mFirst = first;
        mCount = rest < width ? rest : width;
        mPadded = (mCount + group - 1) / group * group;
        for (int j = 0; j < mPadded; ++j) {
            const BilinearSample x =
                bilinearSample(first + (j < mCount ? j : mCount - 1), mXRatio, mJob.srcW);
            const int slot = j / group * group * 4 + j % 4 * group + j % group / 4 * 4;
            mNear[j] = x.near;
            mWeight[j] = x.weight;
            for (int byte = 0; byte < 4; ++byte) {
                mRight[slot + byte] = x.weight;
                mLeft[slot + byte] = 1 - x.weight;
            }
        }
    }

    BilinearSample line(int i) const { return bilinearSample(i, mYRatio, mJob.srcH); }

    RowPair rowPair(const BilinearSample& y) const {
        const auto row = [this](int i) {
            return mJob.src + static_cast<size_t>(i) * static_cast<size_t>(mJob.srcW);
        };
        return {row(y.near), row(y.far), y.weight};
    }

    uint32_t* outputRow(int i) const {
        return mJob.dst + static_cast<size_t>(i) * static_cast<size_t>(mJob.dstW) + mFirst;
    }

    /// Writes the group that begins at column `g`; the last one of a strip may have columns too many.
    void finishGroup(const Vector& vector, const Floats* blended, const RowPair& rows, int g, uint32_t* out) {
        if (g + group <= mCount) {
            Vector::pack(blended, mJob.swapRB, out + g);
        } else {
            uint32_t whole[group];
            Vector::pack(blended, mJob.swapRB, whole);
            memcpy(out + g, whole, static_cast<size_t>(mCount - g) * sizeof(uint32_t));
        }
        if (vector.inDoubt())
            blendPlainly(rows, g, out);
    }

    void blendPlainly(const RowPair& rows, int g, uint32_t* out) const {
        for (int j = g; j < g + group && j < mCount; ++j) {
            const int near = mNear[j];
            const int far = near + 1 < mJob.srcW ? near + 1 : near;
            out[j] = bilinearPixel({rows.top[near], rows.top[far], rows.bottom[near], rows.bottom[far]},
                                   mWeight[j], rows.dy, mJob.swapRB);
        }
    }

    const BilinearJob& mJob;
    const float mXRatio;
    const float mYRatio;
    int mFirst;
    int mCount;
    int mPadded;
    int32_t mNear[width];
    alignas(64) float mWeight[width];
    alignas(64) float mRight[4 * width];
    alignas(64) float mLeft[4 * width];
};

/// Blends straight from the bytes of two rows. Strips are wide: what the processor fetches ahead of a row is
/// then seldom in vain.
template <class Vector>
class BilinearShrinker : BilinearStrip<Vector, 512> {
    using Base = BilinearStrip<Vector, 512>;
    using Floats = typename Vector::Floats;
    using Raw = typename Vector::Raw;
    using Base::group;

public:
    explicit BilinearShrinker(const BilinearJob& job) : Base(job) {}

    void scale() {
        for (int first = 0; first < this->mJob.dstW; first += 512) {
            this->place(first);
            for (int at = 0; at < this->mPadded * 4; ++at) {
                mRightBias[at] = this->mRight[at] * -integerBias;
                mLeftBias[at] = this->mLeft[at] * -integerBias;
            }
            for (int i = 0; i < this->mJob.dstH; ++i)
                blendRow(this->rowPair(this->line(i)), this->outputRow(i));
        }
    }

private:
    void blendRow(const RowPair& rows, uint32_t* out) {
        const Floats lower = Vector::splat(rows.dy);
        const Floats upper = Vector::splat(1 - rows.dy);
        const Floats lowerBias = Vector::splat(rows.dy * -integerBias);
        for (int g = 0; g < this->mPadded; g += group) {
            Vector vector;
            Floats blended[4];
#pragma GCC unroll 4
            for (int k = 0; k < 4; ++k) {
                const int at = g * 4 + k * group;
                const Floats right = Vector::load(this->mRight + at);
                const Floats left = Vector::load(this->mLeft + at);
                Raw topLeft, topRight, bottomLeft, bottomRight;
                Vector::loadPairs(rows.top, this->mNear + g + k, topLeft, topRight);
                Vector::loadPairs(rows.bottom, this->mNear + g + k, bottomLeft, bottomRight);
                Floats t = Vector::mul(Vector::weigh(topRight, right, Vector::load(mRightBias + at)), upper);
                t = vector.fma(Vector::weigh(topLeft, left, Vector::load(mLeftBias + at)), upper, t);
                t = vector.fma(Vector::weigh(bottomLeft, lower, lowerBias), left, t);
                blended[k] = vector.fma(Vector::toFloats(bottomRight), Vector::mul(right, lower), t);
            }
            this->finishGroup(vector, blended, rows, g, out);
        }
    }

    alignas(64) float mRightBias[4 * 512]; // -integerBias times the weights, which is exact
    alignas(64) float mLeftBias[4 * 512];
};

/// Keeps what several output rows between the same two source rows have in common. Strips are narrow, so that
/// all of this stays in the nearest cache.
template <class Vector>
class BilinearEnlarger : BilinearStrip<Vector, 256> {
    using Base = BilinearStrip<Vector, 256>;
    using Floats = typename Vector::Floats;
    using Base::group;

public:
    explicit BilinearEnlarger(const BilinearJob& job) : Base(job) {}

    /// For at most as many source columns as output columns.
    void scale() {
        for (int first = 0; first < this->mJob.dstW; first += 256) {
            this->place(first);
            for (int j = 0; j < this->mPadded; ++j)
                mPlace[j] = this->mNear[j] - this->mNear[0];
            scaleStrip();
        }
    }

private:
    void scaleStrip() {
        int top = -1;
        int bottom = -1;
        for (int i = 0; i < this->mJob.dstH; ++i) {
            const BilinearSample y = this->line(i);
            const RowPair rows = this->rowPair(y);
            if (y.near == top) {
                blendRow<false>(rows, this->outputRow(i));
                continue;
            }
            if (y.near != bottom)
                spreadBottom(rows.top);
            readSource(rows.bottom);
            blendRow<true>(rows, this->outputRow(i));
            top = y.near;
            bottom = y.far;
        }
    }

    /// Makes floats of the pixels of a source row that the strip needs. Beyond the row's end stands its last.
    void readSource(const uint32_t* row) {
        const int begin = this->mNear[0];
        const int count = this->mNear[this->mCount - 1] - begin + 2;
        const int present = begin + count <= this->mJob.srcW ? count : this->mJob.srcW - begin;
        Vector::toFloats(row + begin, present, mSource);
        if (present < count)
            memcpy(mSource + 4 * present, mSource + 4 * present - 4, 4 * sizeof(float));
    }

    /// The left or, `offset` 4 floats on, the right neighbours of a vector's columns.
    Floats spread(int offset, int column) const { return Vector::gather(mSource + offset, mPlace + column); }

    void spreadBottom(const uint32_t* row) {
        readSource(row);
        for (int g = 0; g < this->mPadded; g += group)
            for (int k = 0; k < 4; ++k) {
                Vector::store(mBottomLeft + g * 4 + k * group, spread(0, g + k));
                Vector::store(mBottomRight + g * 4 + k * group, spread(4, g + k));
            }
    }

    /// Blends a row; first, if `advance`, the bottom row becomes the top and the source read last the bottom.
    template <bool advance>
    void blendRow(const RowPair& rows, uint32_t* out) {
        const Floats lower = Vector::splat(rows.dy);
        const Floats upper = Vector::splat(1 - rows.dy);
        for (int g = 0; g < this->mPadded; g += group) {
            Vector vector;
            const Floats corner = Vector::mul(Vector::load(this->mWeight + g), lower);
            const Floats corners[4] = {Vector::template spread<0>(corner), Vector::template spread<1>(corner),
                                       Vector::template spread<2>(corner),
                                       Vector::template spread<3>(corner)};
            Floats blended[4];
#pragma GCC unroll 4
            for (int k = 0; k < 4; ++k) {
                const int at = g * 4 + k * group;
                const Floats left = Vector::load(this->mLeft + at);
                if (advance) {
                    const Floats right = Vector::load(this->mRight + at);
                    Vector::store(mTopLeft + at, Vector::mul(Vector::load(mBottomLeft + at), left));
                    Vector::store(mTopRight + at, Vector::mul(Vector::load(mBottomRight + at), right));
                    Vector::store(mBottomLeft + at, spread(0, g + k));
                    Vector::store(mBottomRight + at, spread(4, g + k));
                }
                Floats t = Vector::mul(Vector::load(mTopRight + at), upper);
                t = vector.fma(Vector::load(mTopLeft + at), upper, t);
                t = vector.fma(Vector::mul(Vector::load(mBottomLeft + at), lower), left, t);
                blended[k] = vector.fma(Vector::load(mBottomRight + at), corners[k], t);
            }
            this->finishGroup(vector, blended, rows, g, out);
        }
    }

    int32_t mPlace[256]; // of the columns' left neighbours in mSource
    alignas(64) float mSource[4 * (256 + 2)];
    alignas(64) float mTopLeft[4 * 256]; // times the weights of the columns
    alignas(64) float mTopRight[4 * 256];
    alignas(64) float mBottomLeft[4 * 256];
    alignas(64) float mBottomRight[4 * 256];
};

/// Whether every output pixel has a right neighbour in its own source row.
inline bool hasNeighbours(const BilinearJob& job) {
    const float ratio = static_cast<float>(job.srcW - 1) / static_cast<float>(job.dstW);
    return bilinearSample(job.dstW - 1, ratio, job.srcW).near + 1 < job.srcW;
}

template <class Vector>
void scaleBilinear(const BilinearJob& job) {
    const bool narrow = !hasNeighbours(job);
    if (job.srcW <= job.dstW && (narrow || job.srcH <= job.dstH / 4 * 3))
        BilinearEnlarger<Vector>(job).scale();
    else if (!narrow)
        BilinearShrinker<Vector>(job).scale();
    else
        bilinearPlain(job); // so wide that floats cannot tell columns apart
}

} // namespace
