#ifndef KOVRAN_SRC_H265_DERIVED_PICTURES_H
#define KOVRAN_SRC_H265_DERIVED_PICTURES_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace kovran {

// Differences of picture order counts are less than this, clause 8.3.1.
inline constexpr std::int64_t farthest_picture = 1 << 15;

// The pictures of a short-term reference picture set as differences of picture order counts: those
// before the current picture (DeltaPocS0), nearest first, then those after it (DeltaPocS1).
class short_term_pictures {
public:
    static constexpr std::size_t most = 16;

    struct picture {
        std::int64_t delta_poc;
        bool used_by_curr_pic;
    };

    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] std::size_t num_negative() const { return num_negative_; }
    [[nodiscard]] const picture& operator[](std::size_t i) const { return pictures_[i]; }

    // False, and nothing added, when there are too many.
    [[nodiscard]] bool add(const picture& added) {
        if (size_ == most) {
            return false;
        }
        num_negative_ += added.delta_poc < 0 ? 1 : 0;
        pictures_[size_++] = added;
        return true;
    }

private:
    std::array<picture, most> pictures_{};
    std::size_t size_ = 0;
    std::size_t num_negative_ = 0;
};

// The pictures of a set that has been read, clause 7.4.8. False when it has more than a set can
// have, or its arrays do not fit its counts.
template <class Set>
[[nodiscard]] bool pictures_of(const Set& set, short_term_pictures& pictures) {
    const auto add_direction = [&pictures](int sign, unsigned int count, const auto& deltas,
                                           const auto& used) {
        if (count > deltas.size() || count > used.size()) {
            return false;
        }
        std::int64_t distance = 0;
        for (std::size_t i = 0; i < count; ++i) {
            distance += std::int64_t{deltas[i]} + 1;
            if (!pictures.add({sign * distance, used[i]})) {
                return false;
            }
        }
        return true;
    };
    return add_direction(-1, set.num_negative_pics, set.delta_poc_s0_minus1,
                         set.used_by_curr_pic_s0_flag) &&
           add_direction(1, set.num_positive_pics, set.delta_poc_s1_minus1,
                         set.used_by_curr_pic_s1_flag);
}

// The pictures of a set that is predicted from `reference`, equations 7-61 and 7-62; `set` has its
// flags and its distance. False when they are too many, or one is farther away than clause 8.3.1
// has differences of picture order counts.
template <class Set>
[[nodiscard]] bool predict_pictures(const short_term_pictures& reference, const Set& set,
                                    short_term_pictures& pictures) {
    const std::int64_t absDeltaRps = std::int64_t{set.abs_delta_rps_minus1} + 1;
    const std::int64_t deltaRps = set.delta_rps_sign ? -absDeltaRps : absDeltaRps;
    const std::size_t negative = reference.num_negative();
    const std::size_t all = reference.size();
    // Outwards from the current picture: pictures across the one that the reference set belongs to,
    // nearest to it last in their direction, then that picture, whose flags are entry `all`, then
    // those of the direction itself.
    const auto add_direction = [&](bool before, std::size_t across_begin, std::size_t across,
                                   std::size_t begin) {
        for (std::size_t k = 0; k <= all; ++k) {
            std::size_t j = all;
            if (k < across) {
                j = across_begin + across - 1 - k;
            } else if (k > across) {
                j = begin + k - across - 1;
            }
            const std::int64_t dPoc = (j < all ? reference[j].delta_poc : 0) + deltaRps;
            const bool taken = (before ? dPoc < 0 : dPoc > 0) && set.use_delta_flag[j];
            if (taken && (dPoc < -farthest_picture || dPoc >= farthest_picture ||
                          !pictures.add({dPoc, set.used_by_curr_pic_flag[j]}))) {
                return false;
            }
        }
        return true;
    };
    return add_direction(true, negative, all - negative, 0) &&
           add_direction(false, 0, negative, negative);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_DERIVED_PICTURES_H
