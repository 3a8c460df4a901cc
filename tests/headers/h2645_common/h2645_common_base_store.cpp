#include <kovran/h2645_common/h2645_common_base_store.h>

int main() {
    kovran::h2645_common_base_store<int> store;
    const kovran::h2645_common_base_store<int>& constant = store;
    store[3] = 5;
    bool right = store.at(3) == 5 && constant.at(3) == 5 && constant.contains(3);
    right = right && store.find(3) == store.begin() && constant.find(4) == constant.end();
    right = right && constant.find(3) == constant.begin() && store.find(4) == store.end();
    right = right && store.size() == 1 && store.erase(3) == 1 && store.empty();
    store.clear();
    return right && store.active_id == store.no_id ? 0 : 1;
}
