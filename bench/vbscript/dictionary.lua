local function fill(size)
    local entries, count = {}, 0
    for i = 1, size do
        entries["key" .. i] = i
        count = count + 1
    end
    local found = 0
    for i = 1, size do
        if entries["key" .. i] then found = found + entries["key" .. i] % 10 end
    end
    print(count .. " " .. found)
end

for _ = 1, 5 do
    fill(100000)
end
