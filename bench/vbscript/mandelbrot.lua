local function inside(size, limit)
    local count = 0
    for y = 0, size - 1 do
        local ci = 2.0 * y / size - 1.0
        for x = 0, size - 1 do
            local cr = 2.0 * x / size - 1.5
            local zr, zi, zr2, zi2 = 0.0, 0.0, 0.0, 0.0
            local n = 0
            while n < limit and zr2 + zi2 < 4.0 do
                zi = 2.0 * zr * zi + ci
                zr = zr2 - zi2 + cr
                zr2 = zr * zr
                zi2 = zi * zi
                n = n + 1
            end
            if n == limit then count = count + 1 end
        end
    end
    return count
end

print(inside(300, 100))
