local function sort(items, low, high)
    local i, j = low, high
    local pivot = items[(low + high) // 2]
    while i <= j do
        while items[i] < pivot do i = i + 1 end
        while items[j] > pivot do j = j - 1 end
        if i <= j then
            local swapped = items[i]
            items[i] = items[j]
            items[j] = swapped
            i = i + 1
            j = j - 1
        end
    end
    if low < j then sort(items, low, j) end
    if i < high then sort(items, i, high) end
end

local numbers = {}
local seed = 42
for index = 0, 199999 do
    seed = (seed * 1103 + 12345) % 65536
    numbers[index] = seed
end
sort(numbers, 0, 199999)
print(numbers[0] .. " " .. numbers[100000] .. " " .. numbers[199999])
