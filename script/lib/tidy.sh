# Sourced by script/lint: clang-tidy over all of our own .cpp files, on all cores.

# shellcheck shell=bash disable=SC2034

# Makes the generated code that our files include. Not by building its targets: those wait for libraries to be compiled.
prepare_tidy()
{
    local output target
    output=$(cmake --preset lint 2>&1) || { echo "$output"; return 1; }
    while read -r target; do
        output=$(cmake -E cmake_autogen "$target" Debug 2>&1) || { echo "$output"; return 1; }
    done < <(find build/lint -name AutogenInfo.json)
}

tidy_files()
{
    local file
    sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/lint/compile_commands.json | sort -u | while read -r file; do
        case ${file#"${top:?}/"} in
            src/* | tests/* | demo/* | bench/* | faults/* | mutants/*) echo "${file#"$top/"}" ;;
        esac
    done
}

# Lines "file hash": a hash over the file and all of our headers that it includes, near and far.
tidy_hashes()
{
    local file header settings
    local -A content=() includes=()
    settings=$(cat .clang-tidy tests/.clang-tidy script/lib/tidy.sh CMakeLists.txt src/CMakeLists.txt | sha256sum)
    while read -r header file; do
        content[$file]=$header
    done < <(find src tests demo bench faults mutants \( -name '*.cpp' -o -name '*.h' \) -exec sha256sum {} +)
    while IFS=: read -r file header; do
        includes[$file]+="$header "
    done < <(grep -roE --include='*.cpp' --include='*.h' '#include "[^"]+"' src tests demo bench faults mutants | sed 's/#include "\(.*\)"/\1/')

    local queue seen path
    for file in "$@"; do
        queue=("$file")
        local -A seen=()
        while ((${#queue[@]})); do
            path=${queue[0]}
            queue=("${queue[@]:1}")
            [[ -z ${seen[$path]-} && -n ${content[$path]-} ]] || continue
            seen[$path]=1
            for header in ${includes[$path]-}; do
                queue+=("src/$header" "tests/$header" "demo/$header" "bench/$header" "faults/$header" "${path%/*}/$header")
            done
        done
        echo "$file $( (echo "$settings"; for path in "${!seen[@]}"; do echo "$path ${content[$path]}"; done | sort) | sha256sum | cut -d ' ' -f 1)"
    done
}

# tidy_one FILE HASH: silent and successful when clean, which is then remembered.
tidy_one()
{
    local output status=0
    output=$(clang-tidy -p build/lint --quiet --extra-arg=-Wno-unknown-warning-option "$1" 2>&1) || status=$?
    output=$(sed -E '/^[0-9]+ (warnings?|errors?) .*(generated|treated as errors?)\.?$/d' <<<"$output")
    if ((status == 0)) && [[ -z $output ]]; then
        touch "build/lint/clean/$2"
        return
    fi
    printf '\n%s\n%s\n' "clang-tidy: $1" "$output"
    touch "build/lint/faulty/$2"
}

# Sets `tidy_clean` and `tidy_faulty`, the numbers of files.
tidy_all()
{
    local file hash files=() work=()
    prepare_tidy
    mkdir -p build/lint/clean
    rm -rf build/lint/faulty
    mkdir build/lint/faulty
    mapfile -t files < <(tidy_files)
    while read -r file hash; do
        [[ -e build/lint/clean/$hash ]] || work+=("$file" "$hash")
    done < <(tidy_hashes "${files[@]}")
    export -f tidy_one
    ((${#work[@]} == 0)) || printf '%s\0' "${work[@]}" | xargs -0 -n 2 -P "$(nproc)" bash -c 'tidy_one "$@"' tidy
    tidy_faulty=$(find build/lint/faulty -type f | wc -l)
    tidy_clean=$((${#files[@]} - tidy_faulty))
}
